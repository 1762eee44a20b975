// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/day_list.h"

#include <QLocale>
#include <QTest>

#include "core/errors.h"
#include "days/anniversary_texts.h"
#include "store/day_store.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::days;

namespace {

const QDate kThirdOfOctober(1998, 10, 3);

/// A day list with its own database; counts the changes reported.
struct Bench {
    store::DayStore store;
    store::DayDatabase database{store.Path()};
    DayList list;
    int changes = 0;

    Bench() {
        list.WhenChanged([this] { ++changes; });
    }
    void ListDay(QDate date) { list.ListDay(database, date, true); }
    /// 70 000 anniversaries of the third of October.
    void AddMany() const {
        store.Raw(
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 70000)"
            "INSERT INTO Kinenbi(Name,Year,Month,Day,Week) SELECT 'n' || i,0,10,3,0 FROM n");
    }
    void Finish() {
        while (list.IsListing()) {
            list.GoOn();
        }
    }
    QStringList Names() const {
        QStringList names;
        for (const DayListRow& row : list.Rows().Kept()) {
            names.append(row.name);
        }
        return names;
    }
};

}  // namespace

/// The list in the calendar's side panel.
class TstDayList : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void BeginsEmpty();
    void ListsTheAnniversariesOfADay();
    void LeavesOutNationalHolidays();
    void WritesItsCaptionsInEveryLocale();
    void WithThePanelClosedOnlyTheRowsAreCleared();
    void ADatabaseThatFailsLeavesNoRows();
    void ADayOfManyRowsIsListedInSlices();
    void ANewListingEndsASlowOne();
    void ALargeListReadsOnlyTheRequestedRows();
    void ShowsWhatASearchFound();
    void TheNextDayReplacesTheSearchResults();
    void ListsTheThirdMondayOnItself();
    void EditingWithoutASelectionAddsTheFirstTime();
    void EditingWithoutASelectionUsesTheLastNumber();
    void AddingResetsTheNumber();
    void TheNumberOutlivesTheRowsItWasTakenFrom();
    void ANumberBeyondTheListIsRefused();
};

void TstDayList::BeginsEmpty() {
    const DayList list;
    QVERIFY(list.Rows().Kept().isEmpty());
    QCOMPARE(list.Heading(), u"記念日"_s);
    QCOMPARE(list.CountText(), u"ﾃﾞｰﾀ件数 0件"_s);
    QCOMPARE(list.SelectedRow(), 0);
    QVERIFY(!list.ChosenRow());
}

void TstDayList::ListsTheAnniversariesOfADay() {
    Bench bench;
    bench.database.Execute(Insert(u"二"_s, 1998, 10, 3, 0));
    bench.database.Execute(Insert(u"別の日"_s, 0, 10, 4, 0));
    bench.database.Execute(Insert(u"一"_s, 0, 0, 0, 17));
    bench.database.Execute(Insert(u"三"_s, 0, 10, 3, 0));
    bench.ListDay(kThirdOfOctober);
    const QList<DayListRow> expected{{u"二"_s, u"1998"_s, u"10"_s, u"3"_s, QString()},
                                     {u"一"_s, u"毎"_s, u"毎"_s, QString(), u"第1週土"_s},
                                     {u"三"_s, u"毎"_s, u"10"_s, u"3"_s, QString()}};
    QVERIFY(bench.list.Rows().Kept() == expected);
    QCOMPARE(bench.list.Heading(), u"1998年10月3日の記念日"_s);
    QCOMPARE(bench.list.CountText(), u"ﾃﾞｰﾀ件数 3件"_s);
    QVERIFY(bench.changes > 0);
}

void TstDayList::LeavesOutNationalHolidays() {
    Bench bench;
    bench.ListDay(QDate(1998, 1, 1));
    QVERIFY(bench.list.Rows().Kept().isEmpty());
    QCOMPARE(bench.list.Heading(), u"1998年1月1日の記念日"_s);
    QCOMPARE(bench.list.CountText(), u"ﾃﾞｰﾀ件数 0件"_s);
}

void TstDayList::WritesItsCaptionsInEveryLocale() {
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    Bench bench;
    bench.ListDay(QDate(2026, 12, 31));
    QCOMPARE(bench.list.Heading(), u"2026年12月31日の記念日"_s);
    QCOMPARE(bench.list.CountText(), u"ﾃﾞｰﾀ件数 0件"_s);
    QLocale::setDefault(before);
}

void TstDayList::WithThePanelClosedOnlyTheRowsAreCleared() {
    Bench bench;
    bench.database.Execute(Insert(u"a"_s, 0, 10, 0, 0));
    bench.database.Execute(Insert(u"b"_s, 0, 10, 3, 0));
    bench.ListDay(kThirdOfOctober);
    bench.list.ListDay(bench.database, QDate(1998, 11, 3), false);
    QVERIFY(bench.list.Rows().Kept().isEmpty());
    QCOMPARE(bench.list.Heading(), u"1998年10月3日の記念日"_s);
    QCOMPARE(bench.list.CountText(), u"ﾃﾞｰﾀ件数 1件"_s);
}

void TstDayList::ADatabaseThatFailsLeavesNoRows() {
    Bench bench;
    bench.database.Execute(Insert(u"b"_s, 0, 10, 3, 0));
    bench.ListDay(kThirdOfOctober);
    bench.store.Raw("DROP TABLE Kinenbi");
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.ListDay(kThirdOfOctober));
    QVERIFY(bench.list.Rows().Kept().isEmpty());
}

void TstDayList::ADayOfManyRowsIsListedInSlices() {
    Bench bench;
    bench.AddMany();
    bench.ListDay(kThirdOfOctober);
    QVERIFY(bench.list.IsListing());
    QCOMPARE(bench.list.Rows().Count(), 0);
    QCOMPARE(bench.list.Heading(), u"1998年10月3日の記念日"_s);
    QCOMPARE(bench.list.CountText(), u"読み込んでいます"_s);
    bench.store.Raw("DELETE FROM Kinenbi WHERE id = 1");  // this restarts the search
    bench.Finish();
    QCOMPARE(bench.list.CountText(), u"ﾃﾞｰﾀ件数 69999件"_s);
    QCOMPARE(bench.list.Rows().Read(0)->name, u"n2"_s);
}

void TstDayList::ANewListingEndsASlowOne() {
    Bench bench;
    bench.AddMany();
    bench.ListDay(kThirdOfOctober);
    bench.ListDay(QDate(1998, 10, 4));
    QVERIFY(!bench.list.IsListing());
    QCOMPARE(bench.list.CountText(), u"ﾃﾞｰﾀ件数 0件"_s);
    bench.ListDay(kThirdOfOctober);
    bench.database.Close();
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.list.GoOn());
    QVERIFY(!bench.list.IsListing());
}

void TstDayList::ALargeListReadsOnlyTheRequestedRows() {
    Bench bench;
    bench.AddMany();
    bench.ListDay(kThirdOfOctober);
    bench.Finish();
    const ListedRows rows = bench.list.Rows();
    QVERIFY(rows.Kept().isEmpty());
    const DayListRow expected{u"n70000"_s, u"毎"_s, u"10"_s, u"3"_s, QString()};
    QVERIFY(*rows.Read(69'999) == expected);
    bench.store.Raw("UPDATE Kinenbi SET Day = 4 WHERE id = 70000");
    QVERIFY(!rows.Read(69'999));
    bench.list.ChooseRow(69'999);
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.list.ChosenRow());
    bench.database.Close();
    QVERIFY_THROWS_EXCEPTION(RunTimeError, rows.Read(0));
}

void TstDayList::ShowsWhatASearchFound() {
    Bench bench;
    const QList<DayListRow> found{{u"a"_s, u"毎"_s, u"毎"_s, u"1"_s, QString()},
                                  {u"b"_s, u"1998"_s, u"0"_s, u"1"_s, QString()}};
    bench.list.ListFound(found, 7);
    QVERIFY(bench.list.Rows().Kept() == found);
    QCOMPARE(bench.list.Heading(), u"検索結果 (検索対象 7件)"_s);
    QCOMPARE(bench.list.CountText(), u"ﾃﾞｰﾀ件数 2件"_s);
    QCOMPARE(bench.changes, 1);
}

void TstDayList::TheNextDayReplacesTheSearchResults() {
    Bench bench;
    bench.list.ListFound(QList<DayListRow>{{u"a"_s, u"毎"_s, u"毎"_s, u"1"_s, QString()}}, 1);
    bench.ListDay(kThirdOfOctober);
    QVERIFY(bench.list.Rows().Kept().isEmpty());
    QCOMPARE(bench.list.Heading(), u"1998年10月3日の記念日"_s);
}

void TstDayList::ListsTheThirdMondayOnItself() {
    Bench bench;
    bench.database.Execute(Insert(u"例会"_s, 0, 0, 0, 32));
    bench.ListDay(QDate(1998, 10, 19));
    QCOMPARE(bench.Names(), QStringList{u"例会"_s});
    bench.ListDay(QDate(1998, 10, 13));
    QCOMPARE(bench.Names(), QStringList());
}

void TstDayList::EditingWithoutASelectionAddsTheFirstTime() {
    DayList list;
    list.ChooseRow(std::nullopt);
    QCOMPARE(list.SelectedRow(), 0);
    QVERIFY(!list.ChosenRow());
}

void TstDayList::EditingWithoutASelectionUsesTheLastNumber() {
    DayList list;
    list.ListFound(QList<DayListRow>{{u"a"_s, {}, {}, {}, {}}, {u"b"_s, {}, {}, {}, {}}}, 2);
    list.ChooseRow(1);
    QCOMPARE(list.SelectedRow(), 2);
    list.ChooseRow(std::nullopt);
    QCOMPARE(list.SelectedRow(), 2);
    QCOMPARE(list.ChosenRow()->name, u"b"_s);
}

void TstDayList::AddingResetsTheNumber() {
    DayList list;
    list.ListFound(QList<DayListRow>{{u"a"_s, {}, {}, {}, {}}}, 1);
    list.ChooseRow(0);
    list.ChooseNewRow();
    QVERIFY(!list.ChosenRow());
    list.ChooseRow(std::nullopt);
    QVERIFY(!list.ChosenRow());
}

void TstDayList::TheNumberOutlivesTheRowsItWasTakenFrom() {
    DayList list;
    list.ListFound(QList<DayListRow>{{u"a"_s, {}, {}, {}, {}}}, 1);
    list.ChooseRow(0);
    list.ListFound(QList<DayListRow>{{u"b"_s, {}, {}, {}, {}}}, 1);
    QCOMPARE(list.ChosenRow()->name, u"b"_s);
}

void TstDayList::ANumberBeyondTheListIsRefused() {
    DayList list;
    list.ListFound(QList<DayListRow>{{u"a"_s, {}, {}, {}, {}}, {u"b"_s, {}, {}, {}, {}}}, 2);
    list.ChooseRow(1);
    list.ListFound(QList<DayListRow>{{u"a"_s, {}, {}, {}, {}}}, 1);
    QVERIFY_THROWS_EXCEPTION(RunTimeError, list.ChosenRow());
}

QTEST_GUILESS_MAIN(TstDayList)
#include "tst_day_list.moc"
