// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/editor_fields.h"

#include <QTest>

#include "core/errors.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::book;

namespace {

constexpr auto kEveryYear = AnniversaryKind::EveryYear;
constexpr auto kEveryMonth = AnniversaryKind::EveryMonth;
constexpr auto kOneDay = AnniversaryKind::OneDay;

const QDate kThirdOfOctober(1998, 10, 3);  // the first Saturday

/// Fields with a date of their own; the kind is chosen by the test.
EditorFields Filled(AnniversaryKind kind, bool byWeek) {
    return {u"例会"_s, kind, byWeek, u"1999"_s, u"5"_s, u"10"_s, u"第2"_s, u"月曜日"_s};
}

}  // namespace

/// The fields of the anniversary editor.
class TstEditorFields : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EnablesTheFieldsOfEachKind_data();
    void EnablesTheFieldsOfEachKind();
    void ANewAnniversaryBeginsOnTheSelectedDay();
    void ChoosesTheKindOfARow_data();
    void ChoosesTheKindOfARow();
    void TakesTheDateFromTheCalendarAndNotFromTheRow();
    void NamesTheWeekOfEveryDay();
    void ChoosingOneDayClearsTheWeekBoxForGood();
    void MakesARow_data();
    void MakesARow();
    void ReadsOnlyWhatTheKindNeeds_data();
    void ReadsOnlyWhatTheKindNeeds();
    void RefusesWhatIsNoNumber_data();
    void RefusesWhatIsNoNumber();
    void EveryWeekCodeCanBeMade();
    void ARowWithYearAndWeekKeepsItsTickedBox();
    void ARowOfEveryMonthLosesItsYear();
    void ARowWithDayAndWeekLosesItsDay();
};

void TstEditorFields::EnablesTheFieldsOfEachKind_data() {
    QTest::addColumn<AnniversaryKind>("kind");
    QTest::addColumn<bool>("byWeek");
    QTest::addColumn<EditorEnabling>("expected");
    // Enabled: year, month, check box, day, week.
    QTest::newRow("every year") << kEveryYear << false << EditorEnabling{false, true, true, true, false};
    QTest::newRow("every year, by week")
        << kEveryYear << true << EditorEnabling{false, true, true, false, true};
    QTest::newRow("every month") << kEveryMonth << false << EditorEnabling{false, false, true, true, false};
    QTest::newRow("every month, by week")
        << kEveryMonth << true << EditorEnabling{false, false, true, false, true};
    QTest::newRow("one day") << kOneDay << false << EditorEnabling{true, true, false, true, false};
    QTest::newRow("one day, by week, as it was loaded")
        << kOneDay << true << EditorEnabling{true, true, false, false, true};
}

void TstEditorFields::EnablesTheFieldsOfEachKind() {
    QFETCH(AnniversaryKind, kind);
    QFETCH(bool, byWeek);
    QFETCH(EditorEnabling, expected);
    QVERIFY(EnablingOf(kind, byWeek) == expected);
}

void TstEditorFields::ANewAnniversaryBeginsOnTheSelectedDay() {
    const EditorFields expected{u"新しい記念日"_s, kEveryYear, false,    u"1998"_s,
                                u"10"_s,           u"3"_s,     u"第1"_s, u"土曜日"_s};
    QVERIFY(FieldsToAdd(kThirdOfOctober) == expected);
}

void TstEditorFields::ChoosesTheKindOfARow_data() {
    QTest::addColumn<days::Anniversary>("row");
    QTest::addColumn<AnniversaryKind>("kind");
    QTest::addColumn<bool>("byWeek");

    QTest::newRow("every year") << days::Anniversary{u"a"_s, 0, 6, 15, 0} << kEveryYear << false;
    QTest::newRow("every month") << days::Anniversary{u"a"_s, 0, 0, 15, 0} << kEveryMonth << false;
    QTest::newRow("one day") << days::Anniversary{u"a"_s, 1998, 6, 15, 0} << kOneDay << false;
    QTest::newRow("every year, by week") << days::Anniversary{u"a"_s, 0, 6, 0, 31} << kEveryYear << true;
    QTest::newRow("every month, by week") << days::Anniversary{u"a"_s, 0, 0, 0, 31} << kEveryMonth << true;
    QTest::newRow("one day, by week") << days::Anniversary{u"a"_s, 1998, 6, 0, 31} << kOneDay << true;
    QTest::newRow("a year, but every month")
        << days::Anniversary{u"a"_s, 1998, 0, 15, 0} << kEveryMonth << false;
}

void TstEditorFields::ChoosesTheKindOfARow() {
    QFETCH(days::Anniversary, row);
    const EditorFields fields = FieldsToEdit(row, kThirdOfOctober);
    QTEST(fields.kind, "kind");
    QTEST(fields.byWeek, "byWeek");
    QCOMPARE(fields.name, u"a"_s);
}

void TstEditorFields::TakesTheDateFromTheCalendarAndNotFromTheRow() {
    const EditorFields fields = FieldsToEdit({u"夏至"_s, 2001, 6, 0, 24}, kThirdOfOctober);
    QCOMPARE(fields.year, u"1998"_s);
    QCOMPARE(fields.month, u"10"_s);
    QCOMPARE(fields.day, u"3"_s);
    QCOMPARE(fields.ordinal, u"第1"_s);
    QCOMPARE(fields.weekday, u"土曜日"_s);
}

void TstEditorFields::NamesTheWeekOfEveryDay() {
    const QString letters = u"月火水木金土日"_s;  // 1 January 1900 is a Monday
    const QDate first(1900, 1, 1);
    for (int i = 0; i < 400 * 366; ++i) {
        const QDate date = first.addDays(i);
        const EditorFields fields = FieldsToAdd(date);
        QCOMPARE(fields.weekday, letters.mid(i % 7, 1) + u"曜日");
        QCOMPARE(fields.ordinal, u"第"_s + QString::number((date.day() - 1) / 7 + 1));
    }
}

void TstEditorFields::ChoosingOneDayClearsTheWeekBoxForGood() {
    EditorFields fields = Filled(kEveryYear, true);
    ChooseKind(fields, kEveryMonth);
    QVERIFY(fields.byWeek);
    ChooseKind(fields, kOneDay);
    QVERIFY(!fields.byWeek);
    ChooseKind(fields, kEveryYear);
    QVERIFY(!fields.byWeek);
    QVERIFY(EnablingOf(fields.kind, fields.byWeek).weekBox);
}

void TstEditorFields::MakesARow_data() {
    QTest::addColumn<EditorFields>("fields");
    QTest::addColumn<days::Anniversary>("row");

    QTest::newRow("every year") << Filled(kEveryYear, false) << days::Anniversary{u"例会"_s, 0, 5, 10, 0};
    QTest::newRow("every month") << Filled(kEveryMonth, false) << days::Anniversary{u"例会"_s, 0, 0, 10, 0};
    QTest::newRow("one day") << Filled(kOneDay, false) << days::Anniversary{u"例会"_s, 1999, 5, 10, 0};
    QTest::newRow("every year, by week")
        << Filled(kEveryYear, true) << days::Anniversary{u"例会"_s, 0, 5, 0, 22};
    QTest::newRow("every month, by week")
        << Filled(kEveryMonth, true) << days::Anniversary{u"例会"_s, 0, 0, 0, 22};
    QTest::newRow("one day, by week")
        << Filled(kOneDay, true) << days::Anniversary{u"例会"_s, 1999, 5, 0, 22};

    EditorFields fields = Filled(kOneDay, false);
    fields.year = u"0"_s;
    QTest::newRow("year 0 means every year") << fields << days::Anniversary{u"例会"_s, 0, 5, 10, 0};
    fields = Filled(kOneDay, false);
    fields.month = u"13"_s;
    fields.day = u"-99"_s;
    QTest::newRow("impossible dates are stored") << fields << days::Anniversary{u"例会"_s, 1999, 13, -99, 0};
    fields.month = u" ５ "_s;
    fields.day = u"2.5"_s;
    QTest::newRow("numbers as they are typed") << fields << days::Anniversary{u"例会"_s, 1999, 5, 2, 0};
    fields.name = u"  "_s;
    QTest::newRow("a name is not trimmed") << fields << days::Anniversary{u"  "_s, 1999, 5, 2, 0};
    fields.name.clear();
    QTest::newRow("a name may be empty") << fields << days::Anniversary{QString(), 1999, 5, 2, 0};

    fields = Filled(kEveryMonth, true);
    fields.weekday = u"月"_s;
    QTest::newRow("an unknown weekday is 0") << fields << days::Anniversary{u"例会"_s, 0, 0, 0, 20};
    fields = Filled(kEveryMonth, true);
    fields.ordinal = u"第35週"_s;
    QTest::newRow("one digit of the week counts") << fields << days::Anniversary{u"例会"_s, 0, 0, 0, 32};
    fields.ordinal = u"x9"_s;
    QTest::newRow("an impossible week is stored") << fields << days::Anniversary{u"例会"_s, 0, 0, 0, 92};
}

void TstEditorFields::MakesARow() {
    QFETCH(EditorFields, fields);
    QFETCH(days::Anniversary, row);
    QVERIFY(AnniversaryOf(fields) == row);
}

void TstEditorFields::ReadsOnlyWhatTheKindNeeds_data() {
    QTest::addColumn<AnniversaryKind>("kind");
    QTest::addColumn<bool>("byWeek");
    QTest::addColumn<QString>("broken");

    QTest::newRow("every year") << kEveryYear << false << u"year ordinal weekday"_s;
    QTest::newRow("every year, by week") << kEveryYear << true << u"year day weekday"_s;
    QTest::newRow("every month") << kEveryMonth << false << u"year month ordinal weekday"_s;
    QTest::newRow("every month, by week") << kEveryMonth << true << u"year month day weekday"_s;
    QTest::newRow("one day") << kOneDay << false << u"ordinal weekday"_s;
    QTest::newRow("one day, by week") << kOneDay << true << u"day weekday"_s;
}

void TstEditorFields::ReadsOnlyWhatTheKindNeeds() {
    QFETCH(AnniversaryKind, kind);
    QFETCH(bool, byWeek);
    QFETCH(QString, broken);
    const QList<std::pair<QString, QString EditorFields::*>> all{{u"year"_s, &EditorFields::year},
                                                                 {u"month"_s, &EditorFields::month},
                                                                 {u"day"_s, &EditorFields::day},
                                                                 {u"ordinal"_s, &EditorFields::ordinal},
                                                                 {u"weekday"_s, &EditorFields::weekday}};
    for (const auto& [name, field] : all) {
        EditorFields fields = Filled(kind, byWeek);
        fields.*field = u"?"_s;
        bool isRead = false;
        try {
            AnniversaryOf(fields);
        } catch (const RunTimeError&) {
            isRead = true;
        }
        QVERIFY2(isRead != broken.split(u' ').contains(name), qPrintable(name));
    }
}

void TstEditorFields::RefusesWhatIsNoNumber_data() {
    QTest::addColumn<QString>("text");

    for (const QString& text : {u""_s, u"x"_s, u"1x"_s, u"十"_s, u"1 0"_s, u"99999999999"_s}) {
        QTest::newRow(qPrintable(text)) << text;
    }
}

void TstEditorFields::RefusesWhatIsNoNumber() {
    QFETCH(QString, text);
    for (QString EditorFields::*field : {&EditorFields::year, &EditorFields::month, &EditorFields::day}) {
        EditorFields fields = Filled(kOneDay, false);
        fields.*field = text;
        QVERIFY_THROWS_EXCEPTION(RunTimeError, AnniversaryOf(fields));
    }
    EditorFields fields = Filled(kEveryMonth, true);
    fields.ordinal = u"第"_s;
    QVERIFY_THROWS_EXCEPTION(RunTimeError, AnniversaryOf(fields));
}

void TstEditorFields::EveryWeekCodeCanBeMade() {
    const QString weekdays = u"日月火水木金土"_s;
    for (int week = 1; week <= 5; ++week) {
        for (int weekday = 1; weekday <= 7; ++weekday) {
            EditorFields fields = Filled(kEveryMonth, true);
            fields.ordinal = u"第%1"_s.arg(week);
            fields.weekday = weekdays.mid(weekday - 1, 1) + u"曜日";
            QCOMPARE(AnniversaryOf(fields).week, 10 * week + weekday);
        }
    }
}

void TstEditorFields::ARowWithYearAndWeekKeepsItsTickedBox() {
    const EditorFields fields = FieldsToEdit({u"a"_s, 1998, 10, 0, 22}, kThirdOfOctober);
    QVERIFY(!EnablingOf(fields.kind, fields.byWeek).weekBox);
    QVERIFY((AnniversaryOf(fields) == days::Anniversary{u"a"_s, 1998, 10, 0, 17}));
}

void TstEditorFields::ARowOfEveryMonthLosesItsYear() {
    const EditorFields fields = FieldsToEdit({u"a"_s, 1998, 0, 15, 0}, kThirdOfOctober);
    QVERIFY((AnniversaryOf(fields) == days::Anniversary{u"a"_s, 0, 0, 3, 0}));
}

void TstEditorFields::ARowWithDayAndWeekLosesItsDay() {
    const EditorFields fields = FieldsToEdit({u"a"_s, 0, 10, 3, 17}, kThirdOfOctober);
    QVERIFY((AnniversaryOf(fields) == days::Anniversary{u"a"_s, 0, 10, 0, 17}));
}

QTEST_GUILESS_MAIN(TstEditorFields)
#include "tst_editor_fields.moc"
