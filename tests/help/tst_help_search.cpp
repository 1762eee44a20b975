// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "help/help_search.h"

using namespace tickwell;
using namespace tickwell::help;
using namespace Qt::StringLiterals;

namespace {

// Contains "時" at 0, 3 and 6.
const FoldedText& Text() {
    static const FoldedText text(u"時計と時報と時間");
    return text;
}

int Place(const HelpSearch& search) {
    const auto current = search.Current();
    return current ? current->position : -1;
}

}  // namespace

/// Moving between hits.
class TstHelpSearch : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ASearchBeginsWhereTheReaderIs_data();
    void ASearchBeginsWhereTheReaderIs();
    void NextAndPreviousWrapAround();
    void TheCountSaysWhichOfHowMany();
    void WithoutAHitNothingIsCurrent();
    void AnEmptyTermEndsTheSearch();
};

void TstHelpSearch::ASearchBeginsWhereTheReaderIs_data() {
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("place");
    QTest::newRow("at the beginning") << 0 << 0;
    QTest::newRow("between two") << 1 << 3;
    QTest::newRow("on one") << 3 << 3;
    QTest::newRow("after the last one it wraps around") << 7 << 0;
}

void TstHelpSearch::ASearchBeginsWhereTheReaderIs() {
    QFETCH(int, from);
    QFETCH(int, place);
    HelpSearch search;
    search.Start(Text(), u"時"_s, from);
    QCOMPARE(Place(search), place);
    QCOMPARE(search.Hits().size(), 3);
}

void TstHelpSearch::NextAndPreviousWrapAround() {
    HelpSearch search;
    search.Start(Text(), u"時"_s, 0);
    QList<int> places;
    for (int i = 0; i < 4; ++i) {
        search.Next();
        places.append(Place(search));
    }
    QCOMPARE(places, (QList<int>{3, 6, 0, 3}));
    places.clear();
    for (int i = 0; i < 4; ++i) {
        search.Previous();
        places.append(Place(search));
    }
    QCOMPARE(places, (QList<int>{0, 6, 3, 0}));
}

void TstHelpSearch::TheCountSaysWhichOfHowMany() {
    HelpSearch search;
    QCOMPARE(search.CountText(), QString());
    search.Start(Text(), u"時"_s, 3);
    QCOMPARE(search.CountText(), u"2 / 3 件"_s);
    search.Next();
    QCOMPARE(search.CountText(), u"3 / 3 件"_s);
}

void TstHelpSearch::WithoutAHitNothingIsCurrent() {
    HelpSearch search;
    search.Start(Text(), u"分"_s, 0);
    QCOMPARE(search.CountText(), u"見つかりません"_s);
    search.Next();
    search.Previous();
    QVERIFY(!search.Current());
}

void TstHelpSearch::AnEmptyTermEndsTheSearch() {
    for (const QString& term : {QString(), u" "_s, u"　"_s}) {
        HelpSearch search;
        search.Start(Text(), u"時"_s, 0);
        search.Start(Text(), term, 0);
        QCOMPARE(search.CountText(), QString());
        QVERIFY(!search.Current());
    }
}

QTEST_GUILESS_MAIN(TstHelpSearch)
#include "tst_help_search.moc"
