// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "timing/alarm_texts.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kMinute = 60'000;
constexpr qint64 kDay = 1440 * kMinute;
const QDate kToday(2026, 11, 23);  // a Monday

QDateTime At(int month, int day, int hour, int minute, int year = 2026) {
    return QDateTime(QDate(year, month, day), QTime(hour, minute));
}

}  // namespace

/// The texts of the alarms.
class TstAlarmTexts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void Days_data();
    void Days();
    void Rings_data();
    void Rings();
    void Calls_data();
    void Calls();
    void Snoozes();
};

void TstAlarmTexts::Days_data() {
    QTest::addColumn<int>("days");
    QTest::addColumn<int>("weekdays");
    QTest::addColumn<bool>("silent");
    QTest::addColumn<QString>("text");
    QTest::newRow("every") << 0 << 0 << false << u"毎日"_s;
    QTest::newRow("workdays") << 1 << 0 << true << u"平日（休みの日を除く）"_s;
    QTest::newRow("one") << 2 << 64 << false << u"日"_s;
    QTest::newRow("some") << 2 << 21 << true << u"月・水・金（休みの日を除く）"_s;
    QTest::newRow("all") << 2 << 127 << false << u"月・火・水・木・金・土・日"_s;
    QTest::newRow("once") << 3 << 0 << false << u"11/29(日)"_s;
}

void TstAlarmTexts::Days() {
    QFETCH(int, days);
    QFETCH(int, weekdays);
    QFETCH(bool, silent);
    QTEST(AlarmDaysText({.days = static_cast<AlarmDays>(days),
                         .weekdays = weekdays,
                         .once = QDate(2026, 11, 29),
                         .silentOnDaysOff = silent},
                        kToday),
          "text");
}

void TstAlarmTexts::Rings_data() {
    QTest::addColumn<QDateTime>("ring");
    QTest::addColumn<QString>("text");
    QTest::newRow("today") << At(11, 23, 23, 59) << u"今日 23:59"_s;
    QTest::newRow("tomorrow") << At(11, 24, 0, 0) << u"明日 0:00"_s;
    QTest::newRow("later") << At(11, 25, 7, 5) << u"11/25(水) 7:05"_s;
    QTest::newRow("next year") << At(1, 4, 7, 0, 2027) << u"2027/1/4(月) 7:00"_s;
}

void TstAlarmTexts::Rings() {
    QFETCH(QDateTime, ring);
    QTEST(RingText(ring, kToday), "text");
}

void TstAlarmTexts::Calls_data() {
    QTest::addColumn<bool>("rings");
    QTest::addColumn<qint64>("ago");
    QTest::addColumn<QDateTime>("at");
    QTest::addColumn<QString>("text");
    QTest::newRow("it rings") << true << qint64{0} << At(11, 23, 7, 0) << u"「起床」の時刻です（7:00）"_s;
    QTest::newRow("late") << true << 10 * kMinute << At(11, 23, 7, 0) << u"「起床」の時刻です（7:00）"_s;
    QTest::newRow("before midnight") << true << kMinute << At(11, 22, 23, 59)
                                     << u"「起床」の時刻です（11/22(日) 23:59）"_s;
    QTest::newRow("missed") << false << 25 * kMinute + 59'999 << At(11, 23, 7, 0)
                            << u"「起床」は25分前（7:00）に鳴るはずでした"_s;
    QTest::newRow("missed by hours") << false << 125 * kMinute << At(11, 23, 7, 0)
                                     << u"「起床」は2時間5分前（7:00）に鳴るはずでした"_s;
    QTest::newRow("missed by days") << false << 3 * kDay + kMinute << At(11, 20, 7, 0)
                                    << u"「起床」は3日前（11/20(金) 7:00）に鳴るはずでした"_s;
}

void TstAlarmTexts::Calls() {
    QFETCH(bool, rings);
    QFETCH(qint64, ago);
    QFETCH(QDateTime, at);
    QTEST(CallText({.name = u"起床"_s, .ago = ago, .rings = rings}, at, kToday), "text");
}

void TstAlarmTexts::Snoozes() {
    QCOMPARE(SnoozeText({5}), u"5分後にもう一度"_s);
    QCOMPARE(SnoozeText({30, 30}), u"30分後にもう一度"_s);
    QCOMPARE(SnoozeText({5, 10}), u"あとでもう一度"_s);
}

QTEST_GUILESS_MAIN(TstAlarmTexts)
#include "tst_alarm_texts.moc"
