// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "timing/alarm_list_bench.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

/// The snooze, and what the alarms store or cannot store.
class TstAlarmListStored : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EachRingsAgainAfterItsOwnMinutes();
    void TheSnoozeIgnoresASetClock();
    void TheSnoozeGoesOnAfterARestart();
    void ASnoozeThatPassedIsTold();
    void ASnoozeEndsWithItsAlarm();
    void TheSnoozeOfAnAlarmThatRingsOnce();
    void FiftyAlarmsAtMost();
    void AFailedStoreChangesNothing();
    void ARingIsToldOnceThoughItCannotBeStored();
};

void TstAlarmListStored::EachRingsAgainAfterItsOwnMinutes() {
    AlarmBench bench;
    KeptAlarm alarm = AlarmAt(21, 10);
    const qint64 first = bench.list.Add(alarm);
    alarm.name = u"薬"_s;
    alarm.snoozeMinutes = 30;
    const qint64 second = bench.list.Add(alarm);
    bench.PassUntil(u"1998-11-15T21:10:00"_s);
    QCOMPARE(bench.list.TakeDue().calls.size(), 2);
    bench.list.Snooze({first, second});
    QCOMPARE(bench.list.UntilDue(), 5 * kMinute);
    QCOMPARE(bench.store.kept[1].againAt, bench.At(u"1998-11-15T21:40:00"_s).toMSecsSinceEpoch());
    bench.Pass(5 * kMinute - 1);
    QVERIFY(bench.list.TakeDue().calls.isEmpty());
    bench.Pass(1);
    const DueAlarms again = bench.list.TakeDue();
    QCOMPARE(Told(again), QStringList(u"起床0"_s));
    QCOMPARE(again.calls[0].at, bench.At(u"1998-11-15T21:10:00"_s).toMSecsSinceEpoch());
    QCOMPARE(bench.list.UntilDue(), 25 * kMinute);
    bench.Pass(25 * kMinute);
    QCOMPARE(Told(bench.list.TakeDue()), QStringList(u"薬0"_s));
    QVERIFY(bench.list.TakeDue().calls.isEmpty());
}

void TstAlarmListStored::TheSnoozeIgnoresASetClock() {
    AlarmBench bench;
    const qint64 id = bench.list.Add(AlarmAt(21, 10));
    bench.PassUntil(u"1998-11-15T21:10:00"_s);
    bench.list.TakeDue();
    bench.list.Snooze({id});
    bench.SetClock(u"1998-11-15T20:10:00"_s);
    QCOMPARE(bench.list.FollowClock(), QString());
    QCOMPARE(bench.store.kept[0].againAt, bench.At(u"1998-11-15T20:15:00"_s).toMSecsSinceEpoch());
    QCOMPARE(bench.list.UntilDue(), 5 * kMinute);
    const int writes = bench.store.writes;
    bench.SetClock(u"1998-11-15T20:10:00"_s);
    bench.time.now = bench.time.now.addMSecs(900);  // a time server
    bench.list.FollowClock();
    QCOMPARE(bench.store.writes, writes);
    bench.Pass(5 * kMinute);
    QCOMPARE(Told(bench.list.TakeDue()), QStringList(u"起床0"_s));
}

void TstAlarmListStored::TheSnoozeGoesOnAfterARestart() {
    AlarmBench bench;
    const qint64 id = bench.list.Add(AlarmAt(21, 10));
    bench.PassUntil(u"1998-11-15T21:10:00"_s);
    bench.list.TakeDue();
    bench.list.Snooze({id});
    AlarmList next = bench.Restarted(2 * kMinute);
    QCOMPARE(next.UntilDue(), 3 * kMinute);
    bench.SetClock(u"1998-11-15T12:00:00"_s);  // while the program was away
    AlarmList later = bench.Restarted(0);
    QCOMPARE(later.UntilDue(), 30 * kMinute);  // no snooze is longer
}

void TstAlarmListStored::ASnoozeThatPassedIsTold() {
    AlarmBench bench;
    const qint64 id = bench.list.Add(AlarmAt(21, 10));
    bench.PassUntil(u"1998-11-15T21:10:00"_s);
    bench.list.TakeDue();
    bench.list.Snooze({id});
    AlarmList next = bench.Restarted(25 * kMinute);
    QCOMPARE(Told(next.TakeDue()), QStringList(u"起床-20"_s));
    QVERIFY(bench.Restarted(0).TakeDue().calls.isEmpty());
}

void TstAlarmListStored::ASnoozeEndsWithItsAlarm() {
    AlarmBench bench;
    const qint64 id = bench.list.Add(AlarmAt(21, 10));
    bench.PassUntil(u"1998-11-15T21:10:00"_s);
    bench.list.TakeDue();
    bench.list.Snooze({id, 99});
    bench.list.SetOn(id, false);
    QVERIFY(!bench.list.UntilDue());
    bench.list.SetOn(id, true);
    bench.list.Snooze({id});
    bench.list.Change(id, AlarmAt(7, 0));
    QVERIFY(bench.list.UntilDue() > kHour);
    bench.list.Snooze({99});
    QVERIFY(bench.list.UntilDue() > kHour);
}

void TstAlarmListStored::TheSnoozeOfAnAlarmThatRingsOnce() {
    AlarmBench bench;
    KeptAlarm alarm = AlarmAt(21, 10, AlarmDays::Once);
    alarm.once = QDate(1998, 11, 15);
    const qint64 id = bench.list.Add(alarm);
    bench.PassUntil(u"1998-11-15T21:10:00"_s);
    QCOMPARE(Told(bench.list.TakeDue()), QStringList(u"起床0"_s));
    bench.list.Snooze({id});
    bench.Pass(5 * kMinute);
    QCOMPARE(Told(bench.list.TakeDue()), QStringList(u"起床0"_s));
    QVERIFY(!bench.list.UntilDue());
}

void TstAlarmListStored::FiftyAlarmsAtMost() {
    AlarmBench bench;
    for (int i = 0; i < 50; ++i) {
        bench.list.Add(AlarmAt(7, i));
    }
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.list.Add(AlarmAt(8, 0)));
    QCOMPARE(bench.list.Rows().size(), 50U);
    QCOMPARE(bench.store.kept.size(), 50);
}

void TstAlarmListStored::AFailedStoreChangesNothing() {
    AlarmBench bench;
    const qint64 id = bench.list.Add(AlarmAt(7, 0));
    const KeptAlarm before = bench.list.Find(id)->kept;
    bench.store.isFull = true;
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.list.Add(AlarmAt(8, 0)));
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.list.Change(id, AlarmAt(8, 0)));
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.list.SetOn(id, false));
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.list.SkipNext(id, true));
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.list.Snooze({id}));
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.list.Remove(id));
    QCOMPARE(bench.list.Rows().size(), 1U);
    QCOMPARE(bench.list.Find(id)->kept, before);
}

void TstAlarmListStored::ARingIsToldOnceThoughItCannotBeStored() {
    AlarmBench bench;
    bench.list.Add(AlarmAt(21, 10));
    bench.PassUntil(u"1998-11-15T21:10:00"_s);
    bench.store.isFull = true;
    QTest::ignoreMessage(QtWarningMsg, "the ring of an alarm was not stored: full");
    const DueAlarms due = bench.list.TakeDue();
    QCOMPARE(Told(due), QStringList(u"起床0"_s));
    QCOMPARE(due.failure, u"full"_s);
    QVERIFY(bench.list.TakeDue().calls.isEmpty());
}

QTEST_GUILESS_MAIN(TstAlarmListStored)
#include "tst_alarm_list_stored.moc"
