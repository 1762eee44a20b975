// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/anniversary_book.h"

#include <QPushButton>
#include <QTest>

#include "book/book_bench.h"
#include "core/errors.h"

using namespace Qt::StringLiterals;
using namespace tickwell;

/// Opening the windows of the anniversary book.
class TstAnniversaryBook : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ARowThatIsGoneOpensNothingAndIsNotTold();
    void ARowThatCannotBeReadOpensNothing();
    void AFailureAfterClosingIsReported();
    void ACalendarThatIsGoneIsNotTold();
    void ADayIsAddedListedEditedFoundAndDeleted();
};

void TstAnniversaryBook::ARowThatIsGoneOpensNothingAndIsNotTold() {
    BookBench bench;
    bench.list.ListFound({{u"a"_s, {}, {}, {}, {}}, {u"b"_s, {}, {}, {}, {}}}, 2);
    bench.list.ChooseRow(1);
    bench.ListSelectedDay();
    bench.OpenEditor();
    QVERIFY(bench.Window() == nullptr);
    QCOMPARE(bench.closed, 1);
    QVERIFY(bench.boxes.Shown().isEmpty());
}

void TstAnniversaryBook::ARowThatCannotBeReadOpensNothing() {
    BookBench bench;
    bench.Add({u"a"_s, 0, 10, 3, -17});  // listed as "第-週土"
    bench.ListSelectedDay();
    bench.list.ChooseRow(0);
    bench.OpenEditor();
    QVERIFY(bench.Window() == nullptr);
    QCOMPARE(bench.closed, 1);
}

void TstAnniversaryBook::AFailureAfterClosingIsReported() {
    BookBench bench;
    bench.book.OpenDeletion(&bench.calendar, [] { throw RunTimeError(u"一覧を作れません。"_s); });
    bench.Press(Qt::Key_Escape);
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QVERIFY(bench.boxes.Shown().constFirst().text.endsWith(u"一覧を作れません。"));
    QCOMPARE(bench.boxes.Owners(), QList<const QObject*>{&bench.calendar});
}

void TstAnniversaryBook::ACalendarThatIsGoneIsNotTold() {
    BookBench bench;
    auto calendar = std::make_unique<QWidget>();
    bench.book.OpenEditor(bench.selected, calendar.get(), [&bench] { ++bench.closed; });
    QVERIFY(calendar->findChild<QDialog*>() != nullptr);
    calendar.reset();
    QCOMPARE(bench.closed, 0);
}

void TstAnniversaryBook::ADayIsAddedListedEditedFoundAndDeleted() {
    BookBench bench;
    bench.OpenEditor();
    bench.Type(u"Text1"_s, u"party"_s);
    bench.Press(Qt::Key_Return);
    bench.ListSelectedDay();
    QVERIFY((bench.list.Rows() == QList<DayListRow>{{u"party"_s, u"毎"_s, u"10"_s, u"3"_s, QString()}}));

    bench.OpenSearch();
    bench.Press(Qt::Key_Return);
    QCOMPARE(bench.list.Rows().size(), 1);
    bench.list.ChooseRow(0);
    bench.OpenEditor();
    bench.Type(u"Text1"_s, u"feast"_s);
    bench.Click(u"Command1"_s);
    bench.ListSelectedDay();
    QCOMPARE(bench.list.Rows().constFirst().name, u"feast"_s);

    bench.OpenDeletion();
    bench.Click(u"Command3"_s);
    bench.Click(u"Command1"_s);
    bench.ListSelectedDay();
    QVERIFY(bench.list.Rows().isEmpty());
    QVERIFY(bench.Stored().empty());
    QCOMPARE(bench.changes.raised, 3);
}

QTEST_MAIN(TstAnniversaryBook)
#include "tst_anniversary_book.moc"
