// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/day_list_row.h"

#include <QTest>

#include "core/errors.h"
#include "days/anniversary_texts.h"
#include "store/day_store.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::days;

namespace {

const QString kWeekdays = u"日月火水木金土"_s;

}  // namespace

/// The conversion of anniversaries to texts of the calendar's list and back.
class TstDayListRow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ShowsARow_data();
    void ShowsARow();
    void ReadsNumbersBack_data();
    void ReadsNumbersBack();
    void ReadsWeeksBack_data();
    void ReadsWeeksBack();
    void EveryWeekCodeComesBackWithItsDigitsSwapped();
    void RefusesTextsThatAreNoNumbers_data();
    void RefusesTextsThatAreNoNumbers();
    void ReadsAWholeRowBack();
    void KeepsTheStoredValues_data();
    void KeepsTheStoredValues();
};

void TstDayListRow::ShowsARow_data() {
    QTest::addColumn<Anniversary>("stored");
    QTest::addColumn<DayListRow>("shown");

    QTest::newRow("this day only") << Anniversary{u"開店"_s, 1998, 10, 3, 0}
                                   << DayListRow{u"開店"_s, u"1998"_s, u"10"_s, u"3"_s, QString()};
    QTest::newRow("every year") << Anniversary{u"誕生日"_s, 0, 10, 3, 0}
                                << DayListRow{u"誕生日"_s, u"毎"_s, u"10"_s, u"3"_s, QString()};
    QTest::newRow("every month") << Anniversary{u"給料日"_s, 0, 0, 25, 0}
                                 << DayListRow{u"給料日"_s, u"毎"_s, u"毎"_s, u"25"_s, QString()};
    QTest::newRow("second Monday") << Anniversary{u"例会"_s, 0, 1, 0, 22}
                                   << DayListRow{u"例会"_s, u"毎"_s, u"1"_s, QString(), u"第2週月"_s};
    QTest::newRow("fifth Saturday") << Anniversary{u"例会"_s, 0, 0, 0, 57}
                                    << DayListRow{u"例会"_s, u"毎"_s, u"毎"_s, QString(), u"第5週土"_s};
    QTest::newRow("first Sunday of one month")
        << Anniversary{u"a"_s, 2001, 12, 0, 11}
        << DayListRow{u"a"_s, u"2001"_s, u"12"_s, QString(), u"第1週日"_s};
    QTest::newRow("day and week") << Anniversary{u"a"_s, 0, 0, 3, 13}
                                  << DayListRow{u"a"_s, u"毎"_s, u"毎"_s, u"3"_s, u"第1週火"_s};
    QTest::newRow("neither, no name")
        << Anniversary{} << DayListRow{QString(), u"毎"_s, u"毎"_s, QString(), QString()};
    QTest::newRow("a year, but every month")
        << Anniversary{u"a"_s, 1998, 0, 3, 0} << DayListRow{u"a"_s, u"1998"_s, u"毎"_s, u"3"_s, QString()};
    QTest::newRow("no weekday") << Anniversary{u"a"_s, 0, 0, 0, 20}
                                << DayListRow{u"a"_s, u"毎"_s, u"毎"_s, QString(), u"第2週土"_s};
    QTest::newRow("one digit") << Anniversary{u"a"_s, 0, 0, 0, 5}
                               << DayListRow{u"a"_s, u"毎"_s, u"毎"_s, QString(), u"第5週木"_s};
    QTest::newRow("units 8 and 9 start over at Sunday")
        << Anniversary{u"a"_s, 0, 13, 99, 19} << DayListRow{u"a"_s, u"毎"_s, u"13"_s, u"99"_s, u"第1週月"_s};
}

void TstDayListRow::ShowsARow() {
    QFETCH(Anniversary, stored);
    QFETCH(DayListRow, shown);
    const store::DayStore store;
    store::DayDatabase database(store.Path());
    database.Execute(Insert(stored.name, stored.year, stored.month, stored.day, stored.week));
    const store::ResultSet all = database.RunQuery(u"SELECT * FROM Kinenbi WHERE Year <> 5"_s);
    QCOMPARE(all.Count(), 1);
    QVERIFY(DayListRowOf(all.Row(0)) == shown);
}

void TstDayListRow::ReadsNumbersBack_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");

    QTest::newRow("every") << u"毎"_s << 0;
    QTest::newRow("empty") << QString() << 0;
    QTest::newRow("year") << u"1998"_s << 1998;
    QTest::newRow("stored month 0, as a search shows it") << u"0"_s << 0;
    QTest::newRow("negative") << u"-3"_s << -3;
}

void TstDayListRow::ReadsNumbersBack() {
    QFETCH(QString, text);
    QTEST(NumberOfListText(text), "number");
}

void TstDayListRow::ReadsWeeksBack_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("code");

    QTest::newRow("every") << u"毎"_s << 0;
    QTest::newRow("empty") << QString() << 0;
    QTest::newRow("first Tuesday") << u"第1週火"_s << 31;
    QTest::newRow("second Monday") << u"第2週月"_s << 22;
    QTest::newRow("fifth Saturday") << u"第5週土"_s << 75;
    QTest::newRow("no weekday at the end") << u"第3週x"_s << 3;
    QTest::newRow("three characters are a number") << u"123"_s << 123;
    QTest::newRow("two characters are a number") << u"13"_s << 13;
    QTest::newRow("four characters are never a number") << u"1357"_s << 3;
    QTest::newRow("five characters are a number") << u"12345"_s << 12345;
}

void TstDayListRow::ReadsWeeksBack() {
    QFETCH(QString, text);
    QTEST(WeekOfListText(text), "code");
}

void TstDayListRow::EveryWeekCodeComesBackWithItsDigitsSwapped() {
    int same = 0;
    for (int week = 1; week <= 5; ++week) {
        for (int weekday = 1; weekday <= 7; ++weekday) {
            const QString text = ListWeekText(10 * week + weekday);
            QCOMPARE(text, u"第%1週%2"_s.arg(week).arg(kWeekdays.at(weekday - 1)));
            const qint32 back = WeekOfListText(text);
            QCOMPARE(back, 10 * weekday + week);
            same += back == 10 * week + weekday ? 1 : 0;
        }
    }
    QCOMPARE(same, 5);
}

void TstDayListRow::RefusesTextsThatAreNoNumbers_data() {
    QTest::addColumn<DayListRow>("row");

    QTest::newRow("year") << DayListRow{u"a"_s, u"毎年"_s, u"1"_s, u"1"_s, QString()};
    QTest::newRow("month") << DayListRow{u"a"_s, u"1"_s, u"x"_s, u"1"_s, QString()};
    QTest::newRow("day") << DayListRow{u"a"_s, u"1"_s, u"1"_s, u"一"_s, QString()};
    QTest::newRow("week") << DayListRow{u"a"_s, u"1"_s, u"1"_s, u"1"_s, u"第x"_s};
    QTest::newRow("ordinal") << DayListRow{u"a"_s, u"1"_s, u"1"_s, u"1"_s, u"第-週日"_s};
}

void TstDayListRow::RefusesTextsThatAreNoNumbers() {
    QFETCH(DayListRow, row);
    QVERIFY_THROWS_EXCEPTION(TypeMismatchError, AnniversaryOf(row));
}

void TstDayListRow::ReadsAWholeRowBack() {
    const Anniversary read = AnniversaryOf({u"例会"_s, u"毎"_s, u"10"_s, QString(), u"第1週火"_s});
    QVERIFY((read == Anniversary{u"例会"_s, 0, 10, 0, 31}));
}

void TstDayListRow::KeepsTheStoredValues_data() {
    QTest::addColumn<Anniversary>("stored");
    QTest::addColumn<qint32>("parsed");  // the week parsed from the text; -1: it cannot be parsed

    const auto row = [](const char* label, const Anniversary& stored, qint32 parsed) {
        QTest::newRow(label) << stored << parsed;
    };
    row("no week", {u"a"_s, 1998, 10, 3, 0}, 0);
    row("third Monday", {u"a"_s, 0, 0, 0, 32}, 23);
    row("second Monday", {u"a"_s, 0, 1, 0, 22}, 22);
    row("day and week", {u"a"_s, 0, 10, 3, 17}, 71);
    row("one digit", {u"a"_s, 0, 0, 0, 5}, 55);
    row("ten", {u"a"_s, 0, 0, 0, 10}, 71);
    row("no weekday", {u"a"_s, 0, 0, 0, 20}, 72);
    row("units 8", {u"a"_s, 0, 0, 0, 18}, 11);
    row("units 9", {u"a"_s, 0, 0, 0, 59}, 25);
    row("sixth week", {u"a"_s, 0, 0, 0, 61}, 16);
    row("three digits", {u"a"_s, 0, 0, 0, 132}, 21);
    row("largest", {u"a"_s, 0, 0, 0, 2147483647}, 72);
    row("negative", {u"a"_s, 0, 0, 0, -17}, -1);
    row("numbers of no calendar", {QString(), -99999, 13, -40, 77}, 77);
}

void TstDayListRow::KeepsTheStoredValues() {
    QFETCH(Anniversary, stored);
    QFETCH(qint32, parsed);
    const store::DayStore store;
    store::DayDatabase database(store.Path());
    database.Execute(Insert(stored.name, stored.year, stored.month, stored.day, stored.week));
    const store::ResultSet all = database.RunQuery(u"SELECT * FROM Kinenbi WHERE Year <> 5"_s);
    for (const RowForm form : {RowForm::OfDay, RowForm::OneDay, RowForm::EveryYear, RowForm::EveryMonth}) {
        const DayListRow row = DayListRowOf(all.Row(0), form);
        QVERIFY(row.stored == stored);
        QVERIFY(TargetOf(row, {.weekdayAnniversaries = true}) == stored);
        if (parsed == -1) {
            QVERIFY_THROWS_EXCEPTION(TypeMismatchError, TargetOf(row, {}));
        } else {
            QCOMPARE(TargetOf(row, {}).week, parsed);
            QVERIFY(TargetOf(row, {}) == AnniversaryOf(row));
        }
    }
}

QTEST_GUILESS_MAIN(TstDayListRow)
#include "tst_day_list_row.moc"
