// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/row_rule.h"

#include <QTest>
#include <QTimeZone>

#include "exchange/calendar_writer.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::exchange;

namespace {

days::Anniversary Row(int year, int month, int day, int week) {
    return {.name = u"名前"_s, .year = year, .month = month, .day = day, .week = week};
}

/// "19900610 FREQ=.." for each rule.
QByteArrayList Texts(const days::Anniversary& row) {
    QByteArrayList texts;
    for (const DayRule& rule : RulesOf(row)) {
        texts.append(rule.start.toString(u"yyyyMMdd"_s).toLatin1() + ' ' +
                     (rule.rule ? RuleText(*rule.rule) : "once"));
    }
    return texts;
}

}  // namespace

/// Events of rows.
class TstRowRule : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void RowsBecomeRules_data();
    void RowsBecomeRules();
    void DaysAreWrittenShortly_data();
    void DaysAreWrittenShortly();
    void AnEventIsWritten();
    void EqualRowsAreOneEvent();
    void DaysOffAndMarksAreNoAnniversaries();
};

void TstRowRule::RowsBecomeRules_data() {
    QTest::addColumn<days::Anniversary>("row");
    QTest::addColumn<QByteArrayList>("rules");
    const auto row = [](const char* name, const days::Anniversary& values, const QByteArrayList& rules) {
        QTest::newRow(name) << values << rules;
    };
    row("one day", Row(2026, 6, 10, 0), {"20260610 once"});
    row("every year", Row(0, 6, 10, 0), {"19900610 FREQ=YEARLY;BYMONTH=6;BYMONTHDAY=10"});
    row("29 February", Row(0, 2, 29, 0), {"20000229 FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=29"});
    row("every month", Row(0, 0, 10, 0), {"19900110 FREQ=MONTHLY;BYMONTHDAY=10"});
    row("the 31st", Row(0, 0, 31, 0), {"19900131 FREQ=MONTHLY;BYMONTHDAY=31"});
    row("the second Monday", Row(0, 0, 0, 22), {"19900108 FREQ=MONTHLY;BYDAY=2MO"});
    row("the second Monday of June", Row(0, 6, 0, 22), {"19900611 FREQ=YEARLY;BYMONTH=6;BYDAY=2MO"});
    row("the fifth Saturday", Row(0, 0, 0, 57), {"19900331 FREQ=MONTHLY;BYDAY=5SA"});
    row("the fifth Sunday of February", Row(0, 2, 0, 51), {"20040229 FREQ=YEARLY;BYMONTH=2;BYDAY=5SU"});
    row("each month of a year", Row(2026, 0, 10, 0), {"20260110 FREQ=MONTHLY;BYMONTHDAY=10;UNTIL=20261231"});
    row("each second Monday of a year", Row(2026, 0, 0, 22),
        {"20260112 FREQ=MONTHLY;BYDAY=2MO;UNTIL=20261231"});
    row("a weekday of one month", Row(2026, 6, 0, 22), {"20260608 once"});
    row("a day and a week", Row(0, 0, 10, 22),
        {"19900110 FREQ=MONTHLY;BYMONTHDAY=10", "19900108 FREQ=MONTHLY;BYDAY=2MO"});
    row("a day and a week on the same date", Row(2026, 6, 8, 22), {"20260608 once"});
    row("a day and an invalid week", Row(0, 6, 10, 60), {"19900610 FREQ=YEARLY;BYMONTH=6;BYMONTHDAY=10"});
    row("an early year", Row(1, 1, 1, 0), {"00010101 once"});
    row("neither", Row(0, 6, 0, 0), {});
    row("30 February", Row(0, 2, 30, 0), {});
    row("29 February of another year", Row(2026, 2, 29, 0), {});
    row("a fifth Monday that is missing", Row(2026, 2, 0, 52), {});
    row("month 13", Row(0, 13, 1, 0), {});
    row("day 32", Row(0, 0, 32, 0), {});
    row("week 6", Row(0, 0, 0, 61), {});
    row("weekday 8", Row(0, 0, 0, 18), {});
    row("negative", Row(-1, 6, 10, 0), {});
    row("year 10000", Row(10000, 6, 10, 0), {});
}

void TstRowRule::RowsBecomeRules() {
    QFETCH(days::Anniversary, row);
    QTEST(Texts(row), "rules");
}

void TstRowRule::DaysAreWrittenShortly_data() {
    QTest::addColumn<days::Anniversary>("row");
    QTest::addColumn<QString>("text");
    QTest::newRow("every year") << Row(0, 6, 10, 0) << u"毎年 6月10日"_s;
    QTest::newRow("every month") << Row(0, 0, 10, 0) << u"毎月 10日"_s;
    QTest::newRow("weekday") << Row(0, 0, 0, 22) << u"毎月 第2月曜"_s;
    QTest::newRow("weekday of a month") << Row(0, 1, 0, 57) << u"毎年 1月 第5土曜"_s;
    QTest::newRow("one day") << Row(2026, 3, 10, 0) << u"2026年3月10日"_s;
    QTest::newRow("months of a year") << Row(2026, 0, 10, 0) << u"2026年 毎月 10日"_s;
    QTest::newRow("weekday of one month") << Row(2026, 3, 0, 11) << u"2026年3月 第1日曜"_s;
}

void TstRowRule::DaysAreWrittenShortly() {
    QFETCH(days::Anniversary, row);
    QTEST(WhenText(row), "text");
}

void TstRowRule::AnEventIsWritten() {
    CalendarWriter writer(QDateTime(QDate(2026, 11, 23), QTime(12, 0), QTimeZone::utc()));
    QVERIFY(writer.AddAnniversary(
        {.name = u"花, 鳥; 風\\月\n夜"_s, .year = 0, .month = 6, .day = 10, .week = 0}));
    QVERIFY(!writer.AddAnniversary(Row(0, 2, 30, 0)));
    // The UID was computed with: printf '花, 鳥; 風\\月\n夜\n0\n6\n10\n0' | sha1sum
    QCOMPARE(QString::fromUtf8(writer.Take()),
             u"BEGIN:VCALENDAR\r\n"
             "VERSION:2.0\r\n"
             "PRODID:-//Tickwell//Tickwell//JA\r\n"
             "CALSCALE:GREGORIAN\r\n"
             "BEGIN:VEVENT\r\n"
             "UID:5c4b7bdc91addebea571496dc3a2b6710e205ac4\r\n"
             "DTSTAMP:20261123T120000Z\r\n"
             "DTSTART;VALUE=DATE:19900610\r\n"
             "RRULE:FREQ=YEARLY;BYMONTH=6;BYMONTHDAY=10\r\n"
             "SUMMARY:花\\, 鳥\\; 風\\\\月\\n夜\r\n"
             "TRANSP:TRANSPARENT\r\n"
             "X-TICKWELL-ROW:0;6;10;0\r\n"
             "END:VEVENT\r\n"
             "END:VCALENDAR\r\n"_s);
}

void TstRowRule::EqualRowsAreOneEvent() {
    CalendarWriter writer(QDateTime(QDate(2026, 11, 23), QTime(12, 0), QTimeZone::utc()));
    for (const days::Anniversary& row :
         {Row(0, 6, 10, 0), Row(0, 6, 10, 0), Row(0, 6, 11, 0), Row(0, 0, 1, 22)}) {
        QVERIFY(writer.AddAnniversary(row));
    }
    const QByteArray file = writer.Take();
    QCOMPARE(file.count("BEGIN:VEVENT"), 4);
    QCOMPARE(file.count("BYMONTHDAY=10"), 1);
}

void TstRowRule::DaysOffAndMarksAreNoAnniversaries() {
    CalendarWriter writer(QDateTime(QDate(2026, 11, 23), QTime(12, 0), QTimeZone::utc()));
    writer.AddDayOff(u"元日"_s, QDate(2027, 1, 1));
    writer.AddMark(days::DayMark::Halfday, QDate(2027, 1, 2));
    const QByteArray file = writer.Take();
    QVERIFY(file.contains(
        "DTSTART;VALUE=DATE:20270101\r\nSUMMARY:元日\r\nTRANSP:TRANSPARENT\r\nX-TICKWELL-DAY:DAYOFF"));
    QVERIFY(file.contains(
        "DTSTART;VALUE=DATE:20270102\r\nSUMMARY:半日\r\nTRANSP:TRANSPARENT\r\nX-TICKWELL-DAY:HALFDAY"));
    QVERIFY(!file.contains("X-TICKWELL-ROW"));
}

QTEST_GUILESS_MAIN(TstRowRule)
#include "tst_row_rule.moc"
