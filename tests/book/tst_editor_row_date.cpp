// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "book/editor_fields.h"
#include "book/whole_work.h"
#include "days/anniversary_model.h"
#include "store/day_store.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::book;

namespace {

const QDate kSelected(1998, 10, 13);  // the second Tuesday
constexpr Corrections kRowDate{.editorTakesDate = true};
constexpr Corrections kBoth{.weekdayAnniversaries = true, .editorTakesDate = true};

/// A row as a search lists it.
days::DayListRow Listed(const days::Anniversary& row) {
    const store::DayStore store;
    store::DayDatabase database(store.Path());
    database.Execute(days::InsertText(row));
    return *FindAnniversaries(database, {}).rows.Read(0);
}

QString DateIn(const EditorFields& fields) {
    return QStringList{fields.year, fields.month, fields.day, fields.ordinal, fields.weekday}.join(u' ');
}

}  // namespace

/// The date in the editor with editorTakesDate.
class TstEditorRowDate : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TakesTheDateOfTheRow_data();
    void TakesTheDateOfTheRow();
    void AnUnchangedEditKeepsTheRow_data();
    void AnUnchangedEditKeepsTheRow();
    void ANewAnniversaryBeginsOnTheSelectedDay();
};

void TstEditorRowDate::TakesTheDateOfTheRow_data() {
    QTest::addColumn<days::Anniversary>("row");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char* label, const days::Anniversary& stored, const QString& expected) {
        QTest::newRow(label) << stored << expected;
    };
    row("every year", {u"a"_s, 0, 6, 15, 0}, u"1998 6 15 第2 火曜日"_s);
    row("every month", {u"a"_s, 0, 0, 25, 0}, u"1998 10 25 第2 火曜日"_s);
    row("one day", {u"a"_s, 2001, 6, 15, 0}, u"2001 6 15 第2 火曜日"_s);
    row("every year, by week", {u"a"_s, 0, 9, 0, 32}, u"1998 9 13 第3 月曜日"_s);
    row("every month, by week", {u"a"_s, 0, 0, 0, 57}, u"1998 10 13 第5 土曜日"_s);
    row("one day, by week", {u"a"_s, 2001, 12, 0, 11}, u"2001 12 13 第1 日曜日"_s);
    row("day and week", {u"a"_s, 0, 10, 20, 32}, u"1998 10 20 第3 月曜日"_s);
    row("neither", {u"a"_s, 0, 0, 0, 0}, u"1998 10 13 第2 火曜日"_s);
    row("a year, but every month", {u"a"_s, 2001, 0, 15, 0}, u"2001 10 15 第2 火曜日"_s);
    row("a day that the month does not have", {u"a"_s, 1999, 2, 31, 0}, u"1999 2 31 第2 火曜日"_s);

    row("before the arrows", {u"a"_s, 1850, 1, 1, 0}, u"1850 1 1 第2 火曜日"_s);
    row("beyond the arrows", {u"a"_s, 9999, 12, 31, 0}, u"9999 12 31 第2 火曜日"_s);
    row("first year", {u"a"_s, 1, 1, 1, 0}, u"1 1 1 第2 火曜日"_s);
    row("year out of range", {u"a"_s, 10000, 6, 15, 0}, u"1998 6 15 第2 火曜日"_s);
    row("negative year", {u"a"_s, -1, 6, 15, 0}, u"1998 6 15 第2 火曜日"_s);
    row("13th month", {u"a"_s, 2001, 13, 15, 0}, u"2001 10 15 第2 火曜日"_s);
    row("negative month", {u"a"_s, 2001, -1, 15, 0}, u"2001 10 15 第2 火曜日"_s);
    row("32nd day", {u"a"_s, 2001, 6, 32, 0}, u"2001 6 13 第2 火曜日"_s);
    row("negative day", {u"a"_s, 2001, 6, -3, 0}, u"2001 6 13 第2 火曜日"_s);

    row("no week", {u"a"_s, 0, 0, 0, 5}, u"1998 10 13 第2 木曜日"_s);
    row("no weekday", {u"a"_s, 0, 0, 0, 40}, u"1998 10 13 第4 火曜日"_s);
    row("weekday 8", {u"a"_s, 0, 0, 0, 18}, u"1998 10 13 第1 火曜日"_s);
    row("weekday 9", {u"a"_s, 0, 0, 0, 59}, u"1998 10 13 第5 火曜日"_s);
    row("sixth week", {u"a"_s, 0, 0, 0, 61}, u"1998 10 13 第2 日曜日"_s);
    row("week 13", {u"a"_s, 0, 0, 0, 137}, u"1998 10 13 第2 土曜日"_s);
    row("neither week nor weekday", {u"a"_s, 0, 0, 0, 99}, u"1998 10 13 第2 火曜日"_s);
    row("negative week", {u"a"_s, 0, 0, 0, -34}, u"1998 10 13 第2 火曜日"_s);
}

void TstEditorRowDate::TakesTheDateOfTheRow() {
    QFETCH(days::Anniversary, row);
    QFETCH(QString, expected);
    const days::DayListRow listed = Listed(row);
    const EditorFields fields = FieldsToEdit(listed, kSelected, kBoth);
    QCOMPARE(DateIn(fields), expected);
    QCOMPARE(fields.name, u"a"_s);
    QCOMPARE(fields.byWeek, row.week != 0);
    if (row.week >= 0) {  // the text of a negative one cannot be parsed
        QVERIFY(FieldsToEdit(listed, kSelected, kRowDate) == fields);
    }
}

void TstEditorRowDate::AnUnchangedEditKeepsTheRow_data() {
    QTest::addColumn<days::Anniversary>("row");

    for (const int month : {0, 1, 2, 10, 12}) {
        for (int number = 11; number <= 57; ++number) {
            if (number % 10 >= 1 && number % 10 <= 7) {
                QTest::addRow("week %d of month %d", number, month)
                    << days::Anniversary{u"a"_s, 0, month, 0, number};
            }
        }
        for (const int day : {1, 13, 29, 31}) {
            QTest::addRow("day %d of month %d", day, month) << days::Anniversary{u"a"_s, 0, month, day, 0};
        }
    }
    QTest::newRow("one day") << days::Anniversary{u"a"_s, 1868, 9, 8, 0};
    QTest::newRow("one day, by week") << days::Anniversary{u"a"_s, 2030, 9, 0, 57};
}

void TstEditorRowDate::AnUnchangedEditKeepsTheRow() {
    QFETCH(days::Anniversary, row);
    QVERIFY(AnniversaryOf(FieldsToEdit(Listed(row), kSelected, kBoth)) == row);
}

void TstEditorRowDate::ANewAnniversaryBeginsOnTheSelectedDay() {
    QCOMPARE(DateIn(FieldsToAdd(kSelected)), u"1998 10 13 第2 火曜日"_s);
}

QTEST_GUILESS_MAIN(TstEditorRowDate)
#include "tst_editor_row_date.moc"
