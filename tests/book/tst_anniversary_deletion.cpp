// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/anniversary_deletion.h"

#include <QTest>

#include "book/whole_work.h"
#include "core/errors.h"
#include "days/anniversary_model.h"
#include "days/anniversary_texts.h"
#include "store/day_store.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::book;

namespace {

struct Bench {
    store::DayStore store;
    store::DayDatabase database{store.Path()};

    QString Names() {
        return ::tickwell::days::Names(database.RunQuery(u"SELECT * FROM Kinenbi WHERE Year <> 5"_s));
    }
    QList<days::DayListRow> Rows() {
        QList<days::DayListRow> rows;
        for (const store::ResultRow& row : database.RunQuery(u"SELECT * FROM Kinenbi WHERE Year <> 5"_s)) {
            rows.append(days::DayListRowOf(row));
        }
        return rows;
    }
};

}  // namespace

/// The deletion of anniversaries.
class TstAnniversaryDeletion : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void CountsWhatIsTicked();
    void DeletesWhatIsTicked();
    void DeletesEveryKind();
    void EqualEntriesAreDeletedTogether();
    void TickingBothOfTwoEqualEntriesIsNoError();
    void AFailingNameLeavesEarlierDeletionsInPlace();
    void AnUnparsableNumberLeavesEarlierDeletionsInPlace();
};

void TstAnniversaryDeletion::CountsWhatIsTicked() {
    QCOMPARE(TickedText(0), u"現在 0項目"_s);
    QCOMPARE(TickedText(12), u"現在 12項目"_s);
}

void TstAnniversaryDeletion::DeletesWhatIsTicked() {
    Bench bench;
    for (const QString& name : {u"a"_s, u"b"_s, u"c"_s, u"d"_s}) {
        bench.database.Execute(days::Insert(name, 0, 10, 3, 0));
    }
    DeleteTicked(bench.database, bench.Rows(), {true, false, false, true});
    QCOMPARE(bench.Names(), u"b c"_s);
}

void TstAnniversaryDeletion::DeletesEveryKind() {
    Bench bench;
    bench.database.Execute(days::Insert(u"a"_s, 1998, 10, 3, 0));
    bench.database.Execute(days::Insert(u"b"_s, 0, 10, 3, 0));
    bench.database.Execute(days::Insert(u"c"_s, 0, 0, 3, 0));
    bench.database.Execute(days::Insert(u"d"_s, 0, 0, 0, 22));
    bench.database.Execute(days::Insert(u"e"_s, 0, 0, 0, 0));
    bench.database.Execute(days::Insert(QString(), -1, 13, 40, 0));
    DeleteTicked(bench.database, bench.Rows(), std::vector<bool>(6, true));
    QCOMPARE(bench.Names(), QString());
}

void TstAnniversaryDeletion::EqualEntriesAreDeletedTogether() {
    Bench bench;
    for (int i = 0; i < 3; ++i) {
        bench.database.Execute(days::Insert(u"a"_s, 0, 10, 3, 0));
    }
    DeleteTicked(bench.database, bench.Rows(), {false, true, false});
    QCOMPARE(bench.Names(), QString());
}

void TstAnniversaryDeletion::TickingBothOfTwoEqualEntriesIsNoError() {
    Bench bench;
    bench.database.Execute(days::Insert(u"a"_s, 0, 10, 3, 0));
    bench.database.Execute(days::Insert(u"a"_s, 0, 10, 3, 0));
    DeleteTicked(bench.database, bench.Rows(), {true, true});
    QCOMPARE(bench.Names(), QString());
}

void TstAnniversaryDeletion::AFailingNameLeavesEarlierDeletionsInPlace() {
    Bench bench;
    for (const QString& name : {u"a"_s, u"b"_s, u"c"_s, u"d"_s}) {
        bench.database.Execute(days::Insert(name, 0, 10, 3, 0));
    }
    QList<days::DayListRow> rows = bench.Rows();
    rows[1].name = u"x\"y"_s;
    QVERIFY_THROWS_EXCEPTION(RunTimeError, DeleteTicked(bench.database, rows, std::vector<bool>(4, true)));
    QCOMPARE(bench.Names(), u"a b"_s);
    QCOMPARE(bench.store.Raw("SELECT Name FROM Kinenbi"), QStringList({u"a"_s, u"b"_s}));
}

void TstAnniversaryDeletion::AnUnparsableNumberLeavesEarlierDeletionsInPlace() {
    Bench bench;
    for (const QString& name : {u"a"_s, u"b"_s, u"c"_s}) {
        bench.database.Execute(days::Insert(name, 0, 10, 3, 0));
    }
    QList<days::DayListRow> rows = bench.Rows();
    rows[0].day = u"x"_s;
    QVERIFY_THROWS_EXCEPTION(RunTimeError, DeleteTicked(bench.database, rows, {true, false, true}));
    QCOMPARE(bench.store.Raw("SELECT Name FROM Kinenbi"), QStringList({u"a"_s, u"b"_s}));
}

QTEST_GUILESS_MAIN(TstAnniversaryDeletion)
#include "tst_anniversary_deletion.moc"
