// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/event_rows.h"

#include <QTest>

#include "exchange/row_rule.h"
#include "ical_helper/protocol.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::exchange;

namespace {

const QDate kToday(2026, 11, 23);

/// The event of a record as the helper writes it.
CalendarEvent Event(const QByteArray& start, const QByteArray& rules, const QByteArray& flags = "n",
                    const QByteArray& rest = "\t\t\t\t") {
    const auto event =
        EventFrom("event\t2\t" + flags + "\tname\tuid\t" + start + "\t1\t" + rules + '\t' + rest);
    return event ? *event : throw std::runtime_error("no event");
}

/// The rows as 「毎年 6月10日 | ..」, or "!" and the reason.
QString Shown(const EventRows& found) {
    QStringList texts;
    for (const days::Anniversary& row : found.rows) {
        texts.append(WhenText(row));
    }
    return found.reason.isEmpty() ? texts.join(u" | "_s) : u'!' + found.reason;
}

QString Shown(const CalendarEvent& event) {
    return Shown(RowsOf(event, kToday));
}

}  // namespace

/// Rows of events.
class TstEventRows : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void RulesBecomeRows_data();
    void RulesBecomeRows();
    void WhatNoRowSaysIsRefused_data();
    void WhatNoRowSaysIsRefused();
    void EventsWithoutARuleAreSingleDays_data();
    void EventsWithoutARuleAreSingleDays();
    void ExclusionsCountFromToday();
    void ReplacedOccurrencesCountFromToday();
    void OwnRowsComeBackUnlessTheEventWasMoved();
    void RefusedEventsBecomeSingleDays();
    void RecordsAreChecked_data();
    void RecordsAreChecked();
};

void TstEventRows::RulesBecomeRows_data() {
    QTest::addColumn<QByteArray>("start");
    QTest::addColumn<QByteArray>("rule");
    QTest::addColumn<QString>("rows");
    const auto row = [](const char* name, const QByteArray& start, const QByteArray& rule,
                        const QString& rows) { QTest::newRow(name) << start << rule << rows; };
    row("every year", "20260610", "YEARLY;1;0;;6;10;;;", u"毎年 6月10日"_s);
    row("the day of its start", "20260610", "YEARLY;1;0;;;;;;", u"毎年 6月10日"_s);
    row("the day of its start in a month", "20260610", "YEARLY;1;0;;6;;;;", u"毎年 6月10日"_s);
    row("yearly on a day of each month", "20260610", "YEARLY;1;0;;;10;;;", u"毎月 10日"_s);
    row("leap day", "20240229", "YEARLY;1;0;;;;;;", u"毎年 2月29日"_s);
    row("every month", "20260610", "MONTHLY;1;0;;;10;;;", u"毎月 10日"_s);
    row("every month on the day of its start", "20260631", "MONTHLY;1;0;;;31;;;", u"毎月 31日"_s);
    row("some months", "20260610", "MONTHLY;1;0;;1,7;10;;;", u"毎年 1月10日 | 毎年 7月10日"_s);
    row("days and months", "20260610", "YEARLY;1;0;;1,7;10,20;;;",
        u"毎年 1月10日 | 毎年 1月20日 | 毎年 7月10日 | 毎年 7月20日"_s);
    row("a day that some months lack", "20260131", "YEARLY;1;0;;1,2;31;;;", u"毎年 1月31日"_s);
    row("the second Monday", "20260608", "MONTHLY;1;0;;;;2MO;;", u"毎月 第2月曜"_s);
    row("the second Monday of June", "20260608", "YEARLY;1;0;;6;;2MO;;", u"毎年 6月 第2月曜"_s);
    row("the fifth Saturday", "20260530", "MONTHLY;1;0;;;;5SA;;", u"毎月 第5土曜"_s);
    row("two weekdays", "20260608", "MONTHLY;1;0;;;;1SU,3MO;;", u"毎月 第1日曜 | 毎月 第3月曜"_s);
    row("by position", "20260608", "MONTHLY;1;0;;;;MO;2;", u"毎月 第2月曜"_s);
    row("by position, yearly", "20260608", "YEARLY;1;0;;6;;MO;2;", u"毎年 6月 第2月曜"_s);
    row("by positions", "20260608", "MONTHLY;1;0;;;;MO;1,3;", u"毎月 第1月曜 | 毎月 第3月曜"_s);
    row("the first of one", "20260608", "MONTHLY;1;0;;;;2MO;1;", u"毎月 第2月曜"_s);
    row("the Monday from 8 to 14", "20260608", "YEARLY;1;0;;6;8,9,10,11,12,13,14;MO;;",
        u"毎年 6月 第2月曜"_s);
    row("two rules", "20260610", "YEARLY;1;0;;;;;;|MONTHLY;1;0;;;20;;;", u"毎年 6月10日 | 毎月 20日"_s);
    row("twice the same", "20260610", "YEARLY;1;0;;6,6;10;;;", u"毎年 6月10日"_s);
    row("an end within a year", "20260315", "MONTHLY;1;0;20260514;;15;;;",
        u"2026年3月15日 | 2026年4月15日"_s);
    row("an end after exactly a year", "20260315", "YEARLY;1;0;20270315;;;;;",
        u"2026年3月15日 | 2027年3月15日"_s);
}

void TstEventRows::RulesBecomeRows() {
    QFETCH(QByteArray, start);
    QFETCH(QByteArray, rule);
    const QByteArray date = start == "20260631" ? "20260531" : start;
    QTEST(Shown(Event(date, rule)), "rows");
}

void TstEventRows::WhatNoRowSaysIsRefused_data() {
    QTest::addColumn<QByteArray>("rule");
    QTest::addColumn<QString>("reason");
    const auto row = [](const QByteArray& rule, const QString& reason) {
        QTest::newRow(rule.constData()) << rule << u'!' + reason;
    };
    row("YEARLY;2;0;;;;;;", u"隔年の予定"_s);
    row("YEARLY;3;0;;;;;;", u"3年ごとの予定"_s);
    row("MONTHLY;2;0;;;;;;", u"隔月の予定"_s);
    row("MONTHLY;6;0;;;;;;", u"6か月ごとの予定"_s);
    row("WEEKLY;1;0;;;;MO;;", u"毎週の予定"_s);
    row("WEEKLY;2;0;;;;;;", u"隔週の予定"_s);
    row("DAILY;1;0;;;;;;", u"毎日の予定"_s);
    row("HOURLY;1;0;;;;;;", u"一日に何度もある予定"_s);
    row("YEARLY;1;5;;;;;;", u"回数の決まった予定"_s);
    row("YEARLY;1;0;20270611;;;;;", u"終わりの決まった予定"_s);
    row("MONTHLY;1;0;;;-1;;;", u"月の終わりから数える予定"_s);
    row("MONTHLY;1;0;;;;-1FR;;", u"月の終わりから数える予定"_s);
    row("MONTHLY;1;0;;;;FR;-1;", u"月の終わりから数える予定"_s);
    row("MONTHLY;1;0;;;;MO;;", u"毎週の予定"_s);
    row("YEARLY;1;0;;6;;MO;;", u"毎週の予定"_s);
    row("YEARLY;1;0;;;;MO;;", u"毎週の予定"_s);
    row("YEARLY;1;0;;;;20MO;;", u"年の何番目かの曜日で決まる予定"_s);
    row("YEARLY;1;0;;;;MO;2;", u"年の何番目かの曜日で決まる予定"_s);
    row("YEARLY;1;0;;1,2;;MO;2;", u"何番目かで選ぶ予定"_s);
    row("MONTHLY;1;0;;;;MO,TU;1;", u"曜日のどれかに当たる予定"_s);
    row("MONTHLY;1;0;;;;1MO,2MO;1;", u"何番目かで選ぶ予定"_s);
    row("MONTHLY;1;0;;;10,20;;1;", u"何番目かで選ぶ予定"_s);
    row("MONTHLY;1;0;;;;6MO;;", u"第6週以後の予定"_s);
    row("MONTHLY;1;0;;;13;FR;;", u"日と曜日の両方で決まる予定"_s);
    row("MONTHLY;1;0;;;9,10,11,12,13,14,15;FR;;", u"日と曜日の両方で決まる予定"_s);
    row("YEARLY;1;0;;;;;;w", u"年の何週目かで決まる予定"_s);
    row("YEARLY;1;0;;;;;;y", u"年の何日目かで決まる予定"_s);
    row("YEARLY;1;0;;;;;;t", u"時刻で繰り返す予定"_s);
    row("YEARLY;1;0;;;;;;r", u"ほかの暦の予定"_s);
    row("YEARLY;1;0;;13;10;;;", u"ほかの暦の予定"_s);
    row("YEARLY;1;0;;2;30;;;", u"どの日にも当たらない予定"_s);
    row("YEARLY;1;0;;;;;;|YEARLY;2;0;;;;;;", u"隔年の予定"_s);
}

void TstEventRows::WhatNoRowSaysIsRefused() {
    QFETCH(QByteArray, rule);
    QTEST(Shown(Event("20260610", rule)), "reason");
}

void TstEventRows::EventsWithoutARuleAreSingleDays_data() {
    QTest::addColumn<QByteArray>("record");
    QTest::addColumn<QString>("rows");
    const auto row = [](const char* name, const QByteArray& record, const QString& rows) {
        QTest::newRow(name) << "event\t2\t" + record << rows;
    };
    row("one", "n\tname\t\t20260310\t1\t\t\t\t\t\t", u"2026年3月10日"_s);
    row("three days", "n\tname\t\t20260330\t3\t\t\t\t\t\t",
        u"2026年3月30日 | 2026年3月31日 | 2026年4月1日"_s);
    row("32 days", "n\tname\t\t20260330\t32\t\t\t\t\t\t", u"!31日より長い予定"_s);
    row("days that repeat", "n\tname\t\t20260330\t3\tYEARLY;1;0;;;;;;\t\t\t\t\t",
        u"!何日も続く繰り返しの予定"_s);
    row("further dates", "n\tname\t\t20260310\t1\t\t20260501,20260401\t\t\t\t",
        u"2026年3月10日 | 2026年4月1日 | 2026年5月1日"_s);
    row("one left out", "n\tname\t\t20260310\t1\t\t20260501\t20260310\t\t\t", u"2026年5月1日"_s);
    row("all left out", "n\tname\t\t20260310\t1\t\t\t20260310\t\t\t", u"!どの日にも当たらない予定"_s);
    row("a rule and a further date", "n\tname\t\t20260310\t1\tYEARLY;1;0;;;;;;\t20280310,20280311\t\t\t\t",
        u"毎年 3月10日 | 2028年3月11日"_s);
    row("1000 further dates",
        "n\tname\t\t20260310\t1\t\t" + QByteArray("20260311,").repeated(999) + "20260311\t\t\t\t",
        u"2026年3月10日 | 2026年3月11日"_s);
    row("1001 further dates",
        "n\tname\t\t20260310\t1\t\t" + QByteArray("20260311,").repeated(1000) + "20260311\t\t\t\t",
        u"!日付が多すぎる予定"_s);
    row("no date", "n\tname\t\t\t1\t\t\t\t\t\t", u"!日付のない予定"_s);
    row("no name", "\t\t\t20260310\t1\t\t\t\t\t\t", u"!名前のない予定"_s);
    row("a blank name", "n\t%20%20\t\t20260310\t1\t\t\t\t\t\t", u"!名前のない予定"_s);
    row("unreadable", "nu\tname\t\t20260310\t1\t\t\t\t\t\t", u"!日付か繰り返しが読めない予定"_s);
    row("a day off of ours", "nd\tname\t\t20260310\t1\t\t\t\t\t\t", u"!休日や印"_s);
    row("an exclusion rule", "nx\tname\t\t20260310\t1\t\t\t\t\t\t", u"!除く日の規則がある予定"_s);
    row("an unknown zone", "nz\tname\t\t20260310\t1\tMONTHLY;1;0;20260614;;;;;\t\t\t\t\t",
        u"!時間帯のわからない予定"_s);
    row("an unknown zone that does not matter", "nz\tname\t\t20260310\t1\tYEARLY;2;0;;;;;;\t\t\t\t\t",
        u"!隔年の予定"_s);
    row("one occurrence of another", "n\tname\tu\t20260310\t1\t\t\t\t20260309\t\t",
        u"!繰り返しの一回だけを変えた予定"_s);
}

void TstEventRows::EventsWithoutARuleAreSingleDays() {
    QFETCH(QByteArray, record);
    const auto event = EventFrom(record);
    QVERIFY(event);
    QTEST(Shown(*event), "rows");
}

void TstEventRows::ExclusionsCountFromToday() {
    const auto with = [](const QByteArray& date) {
        return Shown(Event("20260610", "YEARLY;1;0;;;;;;", "n", "\t" + date + "\t\t\t"));
    };
    QCOMPARE(with("20261122"), u"毎年 6月10日"_s);
    QCOMPARE(with("20261123"), u"!除かれた日のある予定"_s);
    QCOMPARE(with("20280610"), u"!除かれた日のある予定"_s);
    QCOMPARE(Shown(Event("20270315", "MONTHLY;1;0;20270516;;15;;;", "n", "\t20270415\t\t\t")),
             u"2027年3月15日 | 2027年5月15日"_s);
}

void TstEventRows::ReplacedOccurrencesCountFromToday() {
    const CalendarEvent event = Event("20260610", "YEARLY;1;0;;;;;;");
    QCOMPARE(Shown(RowsOf(event, kToday, {QDate(2026, 11, 22)})), u"毎年 6月10日"_s);
    QCOMPARE(Shown(RowsOf(event, kToday, {QDate(2026, 11, 23)})), u"!一回だけ変えた日のある予定"_s);
}

void TstEventRows::OwnRowsComeBackUnlessTheEventWasMoved() {
    const auto own = [](const QByteArray& start, const QByteArray& rule, const QByteArray& row) {
        return RowsOf(Event(start, rule, "n", "\t\t\t" + row.toPercentEncoding() + "\t"), kToday).rows;
    };
    using Rows = std::vector<days::Anniversary>;
    QCOMPARE(own("20260608", "", "2026;6;0;22"), (Rows{{u""_s, 2026, 6, 0, 22}}));
    QCOMPARE(own("20260609", "", "2026;6;0;22"), (Rows{{u""_s, 2026, 6, 9, 0}}));
    QCOMPARE(own("20260115", "MONTHLY;1;0;20261231;;15;;;", "2026;0;15;0"), (Rows{{u""_s, 2026, 0, 15, 0}}));
    QCOMPARE(own("20260608", "", "garbage"), (Rows{{u""_s, 2026, 6, 8, 0}}));
    QCOMPARE(own("19900101", "MONTHLY;1;0;;;1;;;", "0;0;1;22"), (Rows{{u""_s, 0, 0, 1, 22}}));
    QCOMPARE(own("20000229", "YEARLY;1;0;;2;29;;;", "0;2;29;0"), (Rows{{u""_s, 0, 2, 29, 0}}));
}

void TstEventRows::RefusedEventsBecomeSingleDays() {
    const auto single = [](const QByteArray& flags, const QByteArray& rest) {
        return Shown(EventRows{
            SingleRowsOf(Event("20260310", "WEEKLY;1;0;;;;;;", flags, rest), kToday, {QDate(2026, 12, 9)}),
            {}});
    };
    QCOMPARE(single("n", "\t20261208\t\t\t20261207,20261208,20261209,20271122,20271123"),
             u"2026年12月7日 | 2027年11月22日"_s);
    QCOMPARE(single("n", "20261224\t\t\t\t20261207"), u"2026年12月7日 | 2026年12月24日"_s);
    QCOMPARE(single("ne", "\t\t\t\t20261207"), QString());
    QCOMPARE(single("nx", "\t\t\t\t20261207"), QString());
    QCOMPARE(single("nu", "\t\t\t\t20261207"), QString());
}

void TstEventRows::RecordsAreChecked_data() {
    QTest::addColumn<QByteArray>("record");
    const QByteArray good = "event\t2\tn\tname\tuid\t20260310\t1\tYEARLY;1;0;;;;;;\t20260401\t20260402\t\t\t";
    QTest::newRow("a field less") << good.chopped(1);
    QTest::newRow("a field more") << good + '\t';
    QTest::newRow("another word") << QByteArray(good).replace("event", "evens");
    QTest::newRow("no line") << QByteArray(good).replace("\t2\t", "\t0\t");
    QTest::newRow("31 February") << QByteArray(good).replace("20260310", "20260231");
    QTest::newRow("year 0") << QByteArray(good).replace("20260310", "00000310");
    QTest::newRow("signs") << QByteArray(good).replace("20260310", "+2026031");
    QTest::newRow("a bad further date") << QByteArray(good).replace("20260401", "20260431");
    QTest::newRow("a bad excluded date") << QByteArray(good).replace("20260402", "2026040");
    QTest::newRow("no days") << QByteArray(good).replace("\t1\t", "\t0\t");
    QTest::newRow("a rule too short") << QByteArray(good).replace("YEARLY;1;0;;;;;;", "YEARLY;1;0;;;;;");
    QTest::newRow("a frequency") << QByteArray(good).replace("YEARLY", "CENTURY");
    QTest::newRow("a month") << QByteArray(good).replace("YEARLY;1;0;;", "YEARLY;1;0;;14");
    QTest::newRow("a day") << QByteArray(good).replace("YEARLY;1;0;;;", "YEARLY;1;0;;;0");
    QTest::newRow("a weekday") << QByteArray(good).replace("YEARLY;1;0;;;;", "YEARLY;1;0;;;;2XX");
    QVERIFY(EventFrom(good));
}

void TstEventRows::RecordsAreChecked() {
    QFETCH(QByteArray, record);
    QVERIFY(!EventFrom(record));
}

QTEST_GUILESS_MAIN(TstEventRows)
#include "tst_event_rows.moc"
