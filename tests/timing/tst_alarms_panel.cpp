// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "timing/alarm_list_bench.h"
#include "timing/alarms_panel.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

namespace {

struct PanelBench : AlarmBench {
    AlarmsPanel panel{list, time};

    QStringList Row(int row) const { return panel.Rows()[row].texts; }
};

}  // namespace

/// The rows of the alarms, and what can be set.
class TstAlarmsPanel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheRowsTellWhenTheyRing();
    void TheStateOfARow();
    void ANamelessAlarmGetsOne();
    void AnAlarmThatNeverRingsIsRefused();
    void TheEntry();
};

void TstAlarmsPanel::TheRowsTellWhenTheyRing() {
    PanelBench bench;
    bench.panel.Add(AlarmAt(7, 0));
    bench.panel.Add(AlarmAt(21, 5, AlarmDays::Workdays));
    KeptAlarm alarm = AlarmAt(23, 0, AlarmDays::Chosen);
    alarm.weekdays = 64;
    bench.panel.Add(alarm);
    QCOMPARE(bench.Row(0), (QStringList{u"起床"_s, u"7:00"_s, u"毎日"_s, u"明日 7:00"_s, u"入"_s}));
    QCOMPARE(bench.Row(1), (QStringList{u"起床"_s, u"21:05"_s, u"平日"_s, u"明日 21:05"_s, u"入"_s}));
    QCOMPARE(bench.Row(2), (QStringList{u"起床"_s, u"23:00"_s, u"日"_s, u"今日 23:00"_s, u"入"_s}));
    bench.off.insert(QDate(1998, 11, 16));
    alarm = AlarmAt(7, 0, AlarmDays::Workdays);
    alarm.silentOnDaysOff = true;
    bench.panel.Change(1, alarm);
    QCOMPARE(bench.Row(0)[2], u"平日（休みの日を除く）"_s);
    QCOMPARE(bench.Row(0)[3], u"11/17(火) 7:00"_s);
}

void TstAlarmsPanel::TheStateOfARow() {
    PanelBench bench;
    KeptAlarm alarm = AlarmAt(21, 10, AlarmDays::Once);
    alarm.once = QDate(1998, 11, 15);
    const qint64 once = bench.panel.Add(alarm);
    const qint64 every = bench.panel.Add(AlarmAt(7, 0));
    QVERIFY(!bench.panel.ActionsOf(99).exists && !bench.panel.ActionsOf(99).canSkip);
    const AlarmActions fresh = bench.panel.ActionsOf(every);
    QVERIFY(fresh.exists && fresh.isOn && !fresh.isSkipped && fresh.canSkip);
    bench.panel.SkipNext(every, true);
    QCOMPARE(bench.Row(1).mid(3), (QStringList{u"11/17(火) 7:00"_s, u"入（1回休み）"_s}));
    QVERIFY(bench.panel.ActionsOf(every).isSkipped);
    bench.panel.SkipNext(every, false);
    bench.panel.SetOn(every, false);
    QCOMPARE(bench.Row(1).mid(3), (QStringList{u"なし"_s, u"切"_s}));
    QVERIFY(!bench.panel.ActionsOf(every).isOn && !bench.panel.ActionsOf(every).canSkip);
    bench.panel.SkipNext(once, true);  // its only ring
    QCOMPARE(bench.Row(0).mid(3), (QStringList{u"なし"_s, u"入（1回休み）"_s}));
    QVERIFY(bench.panel.ActionsOf(once).isSkipped && bench.panel.ActionsOf(once).canSkip);
    bench.panel.SkipNext(once, false);
    bench.PassUntil(u"1998-11-15T21:10:00"_s);
    bench.list.TakeDue();
    QCOMPARE(bench.Row(0).mid(3), (QStringList{u"なし"_s, u"終了"_s}));
    QVERIFY(!bench.panel.ActionsOf(once).canSkip);
    bench.list.Snooze({once});
    QCOMPARE(bench.Row(0)[4], u"終了（もう一度 21:15）"_s);
}

void TstAlarmsPanel::ANamelessAlarmGetsOne() {
    PanelBench bench;
    KeptAlarm alarm = AlarmAt(7, 0);
    alarm.name = u" \n "_s;
    bench.panel.Add(alarm);
    bench.panel.Add(alarm);
    alarm.name = u" 薬 を\n飲む "_s;
    bench.panel.Add(alarm);
    alarm.name = QString(100, u'長');
    bench.panel.Add(alarm);
    QCOMPARE(bench.Row(0)[0], u"アラーム1"_s);
    QCOMPARE(bench.Row(1)[0], u"アラーム2"_s);
    QCOMPARE(bench.Row(2)[0], u"薬 を 飲む"_s);
    QCOMPARE(bench.Row(3)[0].size(), 60);
}

void TstAlarmsPanel::AnAlarmThatNeverRingsIsRefused() {
    PanelBench bench;
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.panel.Add(AlarmAt(7, 0, AlarmDays::Chosen)));
    KeptAlarm past = AlarmAt(21, 5, AlarmDays::Once);
    past.once = QDate(1998, 11, 15);
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.panel.Add(past));
    QVERIFY(bench.list.Rows().empty());
    past.time = QTime(21, 6);
    const qint64 id = bench.panel.Add(past);
    past.time = QTime(21, 5);
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.panel.Change(id, past));
    QCOMPARE(bench.Row(0)[3], u"今日 21:06"_s);
    past.time = QTime(21, 6);
    past.silentOnDaysOff = true;
    bench.off.insert(QDate(1998, 11, 15));
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.panel.Add(past));
    past.silentOnDaysOff = false;
    bench.panel.Add(past);
    bench.off.clear();
    past.silentOnDaysOff = true;
    bench.panel.Change(id, past);
    bench.off.insert(QDate(1998, 11, 15));  // only now
    QCOMPARE(bench.Row(0).mid(3), (QStringList{u"なし"_s, u"入"_s}));
    bench.PassUntil(u"1998-11-15T21:06:00"_s);
    QCOMPARE(bench.Row(0)[4], u"終了"_s);
}

void TstAlarmsPanel::TheEntry() {
    PanelBench bench;
    const KeptAlarm first = bench.panel.Entry(-1);
    QCOMPARE(first.time, QTime(7, 0));
    QCOMPARE(first.days, AlarmDays::Every);
    QCOMPARE(first.once, QDate(1998, 11, 16));
    QCOMPARE(first.ringSeconds, 60);
    QCOMPARE(first.snoozeMinutes, 5);
    QVERIFY(!first.silentOnDaysOff);
    KeptAlarm alarm = AlarmAt(6, 30);
    alarm.snoozeMinutes = 17;
    const qint64 id = bench.panel.Add(alarm);
    QCOMPARE(bench.panel.Entry(id).time, QTime(6, 30));
    QCOMPARE(bench.panel.Entry(id).snoozeMinutes, 17);
    QCOMPARE(bench.panel.Entry(id).once, QDate(1998, 11, 16));  // for the day field
}

QTEST_GUILESS_MAIN(TstAlarmsPanel)
#include "tst_alarms_panel.moc"
