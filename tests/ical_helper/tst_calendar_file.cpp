// SPDX-License-Identifier: GPL-3.0-or-later
#include "ical_helper/calendar_file.h"

#include <QTest>

#include "ical_helper/protocol.h"

using namespace Qt::StringLiterals;
using namespace tickwell::ical_helper;

namespace {

constexpr int kStart = 5;
constexpr int kDays = 6;
constexpr int kRules = 7;
constexpr int kDates = 8;
constexpr int kExcluded = 9;
constexpr int kReplaced = 10;
constexpr int kRow = 11;
constexpr int kOccurrences = 12;

/// What the helper writes for a file, line by line.
QByteArrayList Output(const QByteArray& file, const Wanted& wanted = {}, int* code = nullptr) {
    QByteArrayList lines;
    const int ended = ReadCalendar(file, wanted, [&lines](const QByteArray& line) {
        lines.append(line);
        return true;
    });
    if (code != nullptr) {
        *code = ended;
    }
    return lines;
}

QByteArray FileOf(const QByteArray& event) {
    return "BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\n" + event + "\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n";
}

/// A field of the record of the only event.
QByteArray Field(const QByteArray& event, int field, const Wanted& wanted = {}) {
    const QByteArrayList lines = Output(FileOf(event), wanted);
    return lines.isEmpty() ? "nothing" : lines.first().split('\t').value(field, "missing");
}

bool HasFlag(const QByteArray& event, char flag) {
    return Field(event, 2).contains(flag);
}

}  // namespace

/// The helper that reads iCalendar files, with its library.
class TstCalendarFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EventsAreRecorded();
    void FieldsAreRead_data();
    void FieldsAreRead();
    void FlagsAreSet_data();
    void FlagsAreSet();
    void OccurrencesAreComputed_data();
    void OccurrencesAreComputed();
    void OccurrencesAreComputedOnlyIfWanted();
    void LinesInsideOtherComponentsDoNotCount();
    void FilesAreRefused_data();
    void FilesAreRefused();
};

void TstCalendarFile::EventsAreRecorded() {
    int code = -1;
    const QByteArrayList lines = Output(
        "BEGIN:VCALENDAR\nBEGIN:VEVENT\nUID:a b\nDTSTART;VALUE=DATE:20260310\nSUMMARY:誕生日\\, "
        "花\nEND:VEVENT\n"
        "BEGIN:VTODO\nSUMMARY:x\nEND:VTODO\nBEGIN:VEVENT\nDTSTART:20260311T090000Z\nEND:VEVENT\nEND:"
        "VCALENDAR\n",
        {}, &code);
    QCOMPARE(code, kEndDone);
    QCOMPARE(lines,
             (QByteArrayList{
                 "event\t2\tn\t%E8%AA%95%E7%94%9F%E6%97%A5%2C%20%E8%8A%B1\ta%20b\t20260310\t1\t\t\t\t\t\t",
                 "event\t10\t\t\t\t20260311\t1\t\t\t\t\t\t", "other\t1"}));
}

void TstCalendarFile::FieldsAreRead_data() {
    QTest::addColumn<QByteArray>("event");
    QTest::addColumn<int>("field");
    QTest::addColumn<QByteArray>("value");
    const QByteArray day = "DTSTART;VALUE=DATE:20260310\r\n";
    const auto row = [](const char* name, const QByteArray& event, int field, const QByteArray& value) {
        QTest::newRow(name) << event << field << value;
    };
    row("a moment of its own zone", "DTSTART;TZID=America/New_York:20260310T233000", kStart, "20260310");
    row("a moment in UTC", "DTSTART:20260310T233000Z", kStart, "20260310");
    row("a floating moment", "DTSTART:20260310T233000", kStart, "20260310");
    row("an impossible date", "DTSTART:99999999", kStart, "");
    row("30 February", "DTSTART;VALUE=DATE:20260230", kStart, "");
    row("one day", day + "DTEND;VALUE=DATE:20260311", kDays, "1");
    row("three days", day + "DTEND;VALUE=DATE:20260313", kDays, "3");
    row("a week", day + "DURATION:P1W", kDays, "7");
    row("an end before the start", day + "DTEND;VALUE=DATE:20260301", kDays, "1");
    row("hours over midnight", "DTSTART:20260310T230000\r\nDTEND:20260312T010000", kDays, "1");
    row("yearly", day + "RRULE:FREQ=YEARLY;BYMONTH=6;BYMONTHDAY=10", kRules, "YEARLY;1;0;;6;10;;;");
    row("lists", day + "RRULE:FREQ=MONTHLY;BYDAY=2MO,TU,-1SU;BYSETPOS=1,-1", kRules,
        "MONTHLY;1;0;;;;2MO,TU,-1SU;1,-1;");
    row("interval and count", day + "RRULE:FREQ=WEEKLY;INTERVAL=2;COUNT=7", kRules, "WEEKLY;2;7;;;;;;");
    row("parts that no row has", day + "RRULE:FREQ=YEARLY;BYWEEKNO=2;BYYEARDAY=3;BYHOUR=4", kRules,
        "YEARLY;1;0;;;;;;wyt");
    row("an end in UTC, in the event's zone",
        "DTSTART;TZID=Asia/Tokyo:20260115T080000\r\nRRULE:FREQ=MONTHLY;UNTIL=20260614T230000Z", kRules,
        "MONTHLY;1;0;20260615;;;;;");
    row("an end in UTC west of it",
        "DTSTART;TZID=America/New_York:20260115T200000\r\nRRULE:FREQ=MONTHLY;UNTIL=20260616T000000Z", kRules,
        "MONTHLY;1;0;20260615;;;;;");
    row("an end in UTC of a whole day", day + "RRULE:FREQ=MONTHLY;UNTIL=20260614T235959Z", kRules,
        "MONTHLY;1;0;20260614;;;;;");
    row("two rules", day + "RRULE:FREQ=YEARLY\r\nRRULE:FREQ=MONTHLY", kRules,
        "YEARLY;1;0;;;;;;|MONTHLY;1;0;;;;;;");
    row("further dates", day + "RDATE;VALUE=DATE:20260401,20260402\r\nRDATE:20260403T010000", kDates,
        "20260401,20260402,20260403");
    row("a period", day + "RDATE;VALUE=PERIOD:20260401T010000/PT1H", kDates, "20260401");
    row("dates left out", day + "EXDATE;VALUE=DATE:20270310", kExcluded, "20270310");
    row("a date left out in UTC", "DTSTART;TZID=Asia/Tokyo:20260310T080000\r\nEXDATE:20270309T230000Z",
        kExcluded, "20270310");
    row("a replaced one", day + "RECURRENCE-ID;VALUE=DATE:20260309", kReplaced, "20260309");
    row("the row", day + "X-TICKWELL-ROW:0;6;10;0", kRow, "0%3B6%3B10%3B0");
    row("blanks around the name", day + "SUMMARY:  a ", 3, "%20%20a%20");
}

void TstCalendarFile::FieldsAreRead() {
    QFETCH(QByteArray, event);
    QFETCH(int, field);
    QTEST(Field(event, field), "value");
}

void TstCalendarFile::FlagsAreSet_data() {
    QTest::addColumn<QByteArray>("event");
    QTest::addColumn<char>("flag");
    const auto row = [](const char* name, char flag, const QByteArray& lines) {
        QTest::newRow(name) << "DTSTART;VALUE=DATE:20260310\r\n" + lines << flag;
    };
    row("cancelled", kCancelled, "STATUS:CANCELLED");
    row("named", kNamed, "SUMMARY:");
    row("ours", kOwnDayOff, "X-TICKWELL-DAY:DAYOFF");
    row("excluding", kExcluding, "EXRULE:FREQ=YEARLY");
    row("month 14", kUnreadable, "RRULE:FREQ=YEARLY;BYMONTH=14");
    row("day 32", kUnreadable, "RRULE:FREQ=MONTHLY;BYMONTHDAY=10,32");
    row("day 0", kUnreadable, "RRULE:FREQ=MONTHLY;BYMONTHDAY=0");
    row("no such weekday", kUnreadable, "RRULE:FREQ=MONTHLY;BYDAY=2XX");
    row("no frequency", kUnreadable, "RRULE:BYMONTH=3");
    row("an unknown frequency", kUnreadable, "RRULE:FREQ=FORTNIGHTLY");
    row("an unknown part", kUnreadable, "RRULE:FREQ=YEARLY;BYMOON=3");
    row("interval 0", kUnreadable, "RRULE:FREQ=YEARLY;INTERVAL=0");
    row("a huge interval", kUnreadable, "RRULE:FREQ=YEARLY;INTERVAL=65537");
    row("a bad end", kUnreadable, "RRULE:FREQ=YEARLY;UNTIL=20269999");
    row("a bad further date", kUnreadable, "RDATE;VALUE=DATE:20260230");
    row("a bad excluded date", kUnreadable, "EXDATE;VALUE=DATE:tomorrow");
    row("a whole day that ends in UTC", kUnknownZone, "RRULE:FREQ=MONTHLY;UNTIL=20260614T150000Z");
    QTest::newRow("an unknown zone") << "DTSTART;TZID=Tokyo Standard Time:20260310T080000\r\n"
                                        "RRULE:FREQ=MONTHLY;UNTIL=20260614T230000Z"_ba
                                     << kUnknownZone;
}

void TstCalendarFile::FlagsAreSet() {
    QFETCH(QByteArray, event);
    QFETCH(char, flag);
    QVERIFY2(HasFlag(event, flag), Field(event, 2).constData());
    QVERIFY(!HasFlag("DTSTART;VALUE=DATE:20260310\r\nRRULE:FREQ=YEARLY;WKST=SU;INTERVAL=1", flag));
}

void TstCalendarFile::OccurrencesAreComputed_data() {
    QTest::addColumn<QByteArray>("event");
    QTest::addColumn<QByteArray>("dates");
    const auto row = [](const char* name, const QByteArray& rule, const QByteArray& dates) {
        QTest::newRow(name) << "DTSTART;VALUE=DATE:20240102\r\nRRULE:" + rule << dates;
    };
    row("every other year", "FREQ=YEARLY;INTERVAL=2", "20260102");
    row("the last Sunday", "FREQ=MONTHLY;BYDAY=-1SU", "20260125,20260222");
    row("an ended one", "FREQ=DAILY;COUNT=3", "");
    row("fortnightly", "FREQ=WEEKLY;INTERVAL=2", "20260113,20260127,20260210,20260224");
    row("the 53rd week", "FREQ=YEARLY;BYWEEKNO=1;BYDAY=TH", "20260101");
}

void TstCalendarFile::OccurrencesAreComputed() {
    QFETCH(QByteArray, event);
    const Wanted wanted{.events = {0}, .period = {QDate(2026, 1, 1), QDate(2026, 3, 1)}};
    QTEST(Field(event, kOccurrences, wanted), "dates");
    QCOMPARE(Field("DTSTART:19900101T000000\r\nRRULE:FREQ=SECONDLY", 2, wanted), QByteArray(1, kEndless));
}

void TstCalendarFile::OccurrencesAreComputedOnlyIfWanted() {
    const QByteArray event = "DTSTART;VALUE=DATE:20260102\r\nRRULE:FREQ=DAILY;COUNT=2";
    const Wanted second{.events = {1}, .period = {QDate(2026, 1, 1), QDate(2026, 3, 1)}};
    QCOMPARE(Field(event, kOccurrences, second), ""_ba);
}

void TstCalendarFile::LinesInsideOtherComponentsDoNotCount() {
    const QByteArray event =
        "DTSTART;VALUE=DATE:20260310\r\nSUMMARY:a\r\nBEGIN:VALARM\r\nSUMMARY:b\r\n"
        "RRULE:FREQ=DAILY\r\nDTSTART:x\r\nEND:VALARM";
    QCOMPARE(Field(event, 3), "a"_ba);
    QCOMPARE(Field(event, kRules), ""_ba);
    QCOMPARE(Field(event, 2), "n"_ba);
}

void TstCalendarFile::FilesAreRefused_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("refusal");
    QTest::newRow("empty") << ""_ba
                           << "refused\tno-calendar\t0"_ba;
    QTest::newRow("another kind") << "hello\r\n"_ba
                                  << "refused\tno-calendar\t0"_ba;
    QTest::newRow("contacts") << "BEGIN:VCARD\nEND:VCARD\n"_ba
                              << "refused\tno-calendar\t1"_ba;
    QTest::newRow("cut off") << "BEGIN:VCALENDAR\nBEGIN:VEVENT\nSUMMARY:a\n"_ba
                             << "refused\tcut-off\t3"_ba;
    QTest::newRow("a wrong end") << "BEGIN:VCALENDAR\nBEGIN:VEVENT\nEND:VCALENDAR\n"_ba
                                 << "refused\twrong-end\t3"_ba;
    QTest::newRow("nothing to end") << "BEGIN:VCALENDAR\nEND:VCALENDAR\nEND:VCALENDAR\n"_ba
                                    << "refused\twrong-end\t3"_ba;
    QTest::newRow("16 deep") << "BEGIN:VCALENDAR\n" + "BEGIN:X\n"_ba.repeated(15) +
                                    "END:X\n"_ba.repeated(15) + "END:VCALENDAR\n"
                             << "other\t0"_ba;
    QTest::newRow("17 deep") << "BEGIN:VCALENDAR\n" + "BEGIN:X\n"_ba.repeated(16)
                             << "refused\ttoo-deep\t17"_ba;
    QTest::newRow("a long line") << FileOf("SUMMARY:" + QByteArray(70'000, 'a')) << "refused\ttoo-long\t3"_ba;
    QTest::newRow("a big event") << FileOf(
                                        QByteArray("EXDATE:" + QByteArray(60'000, '1') + "\n").repeated(20))
                                 << "refused\ttoo-big\t2"_ba;
    QTest::newRow("no UTF-8") << FileOf("SUMMARY:\xFF") << "refused\tnot-utf8\t3"_ba;
}

void TstCalendarFile::FilesAreRefused() {
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, refusal);
    int code = -1;
    QCOMPARE(Output(file, {}, &code).last(), refusal);
    QCOMPARE(code, refusal.startsWith("other") ? kEndDone : kEndRefused);
}

QTEST_GUILESS_MAIN(TstCalendarFile)
#include "tst_calendar_file.moc"
