// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "timing/alarm_list_bench.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

namespace {

const QStringList kRings{u"起床0"_s};

}  // namespace

/// When alarms ring, with clocks that are set, machines that sleep, and programs that are away.
class TstAlarmList : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AnAlarmRingsOncePerDay();
    void ACallTellsHowItRings();
    void OnceIsOnce();
    void NothingIsDueWithoutAnAlarm();
    void TenMinutesLateItStillRings();
    void MissedForDaysItIsToldOnce();
    void AMissedRingIsToldOnceAcrossRestarts();
    void AClockThatIsSetBackRingsNothingTwice();
    void ADateThatWasWrongIsForgotten();
    void AClockThatIsPutForwardTellsWhatItPassed();
    void ASkippedHourRingsAtItsEnd();
    void ARepeatedHourRingsOnce();
    void AnotherZone();
    void ADayOffIsSilent();
    void ADayThatIsNoLongerOff();
    void DaysThatCannotBeReadAreNotOff();
    void TheNextRingIsSkippedOnce();
    void SkippingIsTakenBack();
    void ASkippedRingIsNotMissed();
    void TwoAreSkippedInTurn();
    void WhatPassedWhileItWasOffIsNotMadeUp();
    void AChangeBeginsNow();
    void TwoAlarmsOfOneMinute();
};

void TstAlarmList::AnAlarmRingsOncePerDay() {
    AlarmBench bench;
    const qint64 id = bench.list.Add(AlarmAt(7, 0));
    QCOMPARE(bench.Next(id), u"11/16 7:00"_s);
    QCOMPARE(bench.list.UntilDue(), 9 * kHour + 54 * kMinute + 53'000);
    bench.PassUntil(u"1998-11-16T06:59:59"_s);
    QVERIFY(bench.list.TakeDue().calls.isEmpty());
    bench.Pass(1000);
    QCOMPARE(bench.list.UntilDue(), 0);
    QCOMPARE(bench.Next(id), u"11/17 7:00"_s);  // also before it is told
    QCOMPARE(Told(bench.list.TakeDue()), kRings);
    QVERIFY(bench.list.TakeDue().calls.isEmpty());
    QCOMPARE(bench.list.UntilDue(), 24 * kHour);
    QCOMPARE(bench.Next(id), u"11/17 7:00"_s);
    bench.Pass(24 * kHour);
    QCOMPARE(Told(bench.list.TakeDue()), kRings);
}

void TstAlarmList::ACallTellsHowItRings() {
    AlarmBench bench;
    const qint64 id = bench.list.Add(AlarmAt(21, 6));
    bench.PassUntil(u"1998-11-15T21:06:10"_s);
    QCOMPARE(bench.list.TakeDue().calls,
             (QList<AlarmCall>{{.id = id,
                                .name = u"起床"_s,
                                .at = bench.At(u"1998-11-15T21:06:00"_s).toMSecsSinceEpoch(),
                                .ago = 10'000,
                                .rings = true,
                                .sound = u"TKW01.wav"_s,
                                .ringSeconds = 60,
                                .snoozeMinutes = 5}}));
}

void TstAlarmList::OnceIsOnce() {
    AlarmBench bench;
    KeptAlarm alarm = AlarmAt(7, 0, AlarmDays::Once);
    alarm.once = QDate(1998, 11, 18);
    const qint64 id = bench.list.Add(alarm);
    bench.PassUntil(u"1998-11-17T12:00:00"_s);
    QVERIFY(bench.list.TakeDue().calls.isEmpty());
    bench.PassUntil(u"1998-11-18T07:00:00"_s);
    QCOMPARE(Told(bench.list.TakeDue()), kRings);
    QVERIFY(!bench.list.UntilDue());
    QCOMPARE(bench.Next(id), u"never"_s);
}

void TstAlarmList::NothingIsDueWithoutAnAlarm() {
    AlarmBench bench;
    QVERIFY(!bench.list.UntilDue());
    const qint64 id = bench.list.Add(AlarmAt(7, 0));
    bench.list.SetOn(id, false);
    QVERIFY(!bench.list.UntilDue());
    QCOMPARE(bench.Next(id), u"never"_s);
    bench.list.SetOn(id, true);
    bench.list.Remove(id);
    QVERIFY(!bench.list.UntilDue());
    QVERIFY(bench.store.kept.isEmpty());
}

void TstAlarmList::TenMinutesLateItStillRings() {
    for (const bool isLater : {false, true}) {
        AlarmBench bench;
        bench.list.Add(AlarmAt(7, 0));
        bench.PassUntil(u"1998-11-16T07:10:00"_s);  // asleep until then
        bench.Pass(isLater ? 1 : 0);
        QCOMPARE(Told(bench.list.TakeDue()), QStringList(isLater ? u"起床-10"_s : u"起床10"_s));
    }
}

void TstAlarmList::MissedForDaysItIsToldOnce() {
    AlarmBench bench;
    bench.list.Add(AlarmAt(7, 0));
    bench.PassUntil(u"1998-11-20T08:30:00"_s);
    QCOMPARE(Told(bench.list.TakeDue()), QStringList(u"起床-90"_s));
    QVERIFY(bench.list.TakeDue().calls.isEmpty());
    bench.PassUntil(u"1998-11-21T07:00:00"_s);
    QCOMPARE(Told(bench.list.TakeDue()), kRings);
}

void TstAlarmList::AMissedRingIsToldOnceAcrossRestarts() {
    AlarmBench bench;
    bench.list.Add(AlarmAt(21, 10));
    AlarmList second = bench.Restarted(30 * kMinute);  // 21:35:07
    QCOMPARE(Told(second.TakeDue()), QStringList(u"起床-25"_s));
    AlarmList third = bench.Restarted(kMinute);
    QVERIFY(third.TakeDue().calls.isEmpty());
    AlarmList fourth = bench.Restarted(24 * kHour - 20 * kMinute);  // 21:16:07 on the next day
    QCOMPARE(Told(fourth.TakeDue()), QStringList(u"起床6"_s));
}

void TstAlarmList::AClockThatIsSetBackRingsNothingTwice() {
    AlarmBench bench;
    const qint64 id = bench.list.Add(AlarmAt(7, 0));
    bench.PassUntil(u"1998-11-16T07:00:00"_s);
    QCOMPARE(Told(bench.list.TakeDue()), kRings);
    bench.SetClock(u"1998-11-16T06:30:00"_s);
    QCOMPARE(bench.list.FollowClock(), QString());
    QCOMPARE(bench.Next(id), u"11/17 7:00"_s);
    bench.Pass(kHour);
    QVERIFY(bench.list.TakeDue().calls.isEmpty());
    AlarmList next = bench.Restarted(0);
    QVERIFY(next.TakeDue().calls.isEmpty());
    bench.SetClock(u"1998-11-15T12:00:00"_s);  // nearly a day
    next.FollowClock();
    bench.PassUntil(u"1998-11-16T12:00:00"_s);
    QVERIFY(next.TakeDue().calls.isEmpty());
}

void TstAlarmList::ADateThatWasWrongIsForgotten() {
    AlarmBench bench;
    bench.SetClock(u"2008-11-15T21:05:07"_s);
    bench.list.Add(AlarmAt(7, 0));
    bench.SetClock(u"1998-11-15T21:05:07"_s);
    QCOMPARE(bench.list.FollowClock(), QString());
    bench.PassUntil(u"1998-11-16T07:00:00"_s);
    QCOMPARE(Told(bench.list.TakeDue()), kRings);

    AlarmBench away;
    away.SetClock(u"2008-11-15T21:05:07"_s);
    away.list.Add(AlarmAt(7, 0));
    away.SetClock(u"1998-11-15T21:05:07"_s);
    AlarmList next = away.Restarted(0);
    away.PassUntil(u"1998-11-16T07:00:00"_s);
    QCOMPARE(Told(next.TakeDue()), kRings);
}

void TstAlarmList::AClockThatIsPutForwardTellsWhatItPassed() {
    AlarmBench bench;
    bench.list.Add(AlarmAt(22, 0));
    bench.SetClock(u"1998-11-15T23:00:00"_s);
    bench.list.FollowClock();
    QVERIFY(bench.list.UntilDue() <= 0);
    QCOMPARE(Told(bench.list.TakeDue()), QStringList(u"起床-60"_s));
    bench.SetClock(u"1998-11-15T21:05:07"_s);
    bench.list.FollowClock();
    bench.PassUntil(u"1998-11-15T22:00:00"_s);
    QVERIFY(bench.list.TakeDue().calls.isEmpty());
}

void TstAlarmList::ASkippedHourRingsAtItsEnd() {
    AlarmBench bench;
    bench.zone = QTimeZone("Europe/London");
    bench.SetClock(u"2026-03-28T12:00:00"_s);
    const qint64 id = bench.list.Add(AlarmAt(1, 30));  // on the 29th the clocks go from 1:00 to 2:00
    QCOMPARE(bench.Next(id), u"3/29 2:00"_s);
    bench.PassUntil(u"2026-03-29T00:59:59"_s);
    QVERIFY(bench.list.TakeDue().calls.isEmpty());
    bench.Pass(1000);
    QCOMPARE(Told(bench.list.TakeDue()), kRings);
    QCOMPARE(bench.Next(id), u"3/30 1:30"_s);
}

void TstAlarmList::ARepeatedHourRingsOnce() {
    AlarmBench bench;
    bench.zone = QTimeZone("Europe/London");
    bench.SetClock(u"2026-10-25T00:30:00"_s);
    bench.list.Add(AlarmAt(1, 30));  // 1:00 to 2:00 is shown twice
    bench.Pass(kHour);
    QCOMPARE(Told(bench.list.TakeDue()), kRings);
    bench.Pass(kHour);
    QVERIFY(bench.list.TakeDue().calls.isEmpty());
}

void TstAlarmList::AnotherZone() {
    AlarmBench bench;
    const qint64 id = bench.list.Add(AlarmAt(7, 0));
    bench.zone = QTimeZone("Europe/London");  // it is 12:05:07 there
    QCOMPARE(bench.Next(id), u"11/16 7:00"_s);
    QCOMPARE(bench.list.UntilDue(), 18 * kHour + 54 * kMinute + 53'000);
}

void TstAlarmList::ADayOffIsSilent() {
    AlarmBench bench;
    KeptAlarm alarm = AlarmAt(7, 0);
    const qint64 always = bench.list.Add(alarm);
    alarm.silentOnDaysOff = true;
    alarm.name = u"仕事"_s;
    const qint64 work = bench.list.Add(alarm);
    bench.off.insert(QDate(1998, 11, 16));
    QCOMPARE(bench.Next(always), u"11/16 7:00"_s);
    QCOMPARE(bench.Next(work), u"11/17 7:00"_s);
    bench.PassUntil(u"1998-11-16T07:00:00"_s);
    QCOMPARE(Told(bench.list.TakeDue()), kRings);
    QCOMPARE(bench.list.UntilDue(), 24 * kHour);
    bench.PassUntil(u"1998-11-17T07:00:00"_s);
    QCOMPARE(Told(bench.list.TakeDue()), (QStringList{u"起床0"_s, u"仕事0"_s}));
    bench.off.insert(QDate(1998, 11, 19));
    bench.list.Remove(always);
    bench.PassUntil(u"1998-11-19T09:00:00"_s);  // of two days the second is off: the first was missed
    QCOMPARE(Told(bench.list.TakeDue()), QStringList(u"仕事%1"_s.arg(-26 * 60)));
}

void TstAlarmList::ADayThatIsNoLongerOff() {
    AlarmBench bench;
    KeptAlarm alarm = AlarmAt(7, 0);
    alarm.silentOnDaysOff = true;
    bench.off.insert(QDate(1998, 11, 16));
    bench.list.Add(alarm);
    QCOMPARE(bench.list.UntilDue(), 9 * kHour + 54 * kMinute + 53'000);
    bench.off.clear();
    bench.PassUntil(u"1998-11-16T07:00:00"_s);
    QCOMPARE(Told(bench.list.TakeDue()), kRings);
}

void TstAlarmList::DaysThatCannotBeReadAreNotOff() {
    AlarmBench bench;
    KeptAlarm alarm = AlarmAt(7, 0);
    alarm.silentOnDaysOff = true;
    bench.off.insert(QDate(1998, 11, 16));
    const qint64 id = bench.list.Add(alarm);
    bench.daysFail = true;
    QTest::ignoreMessage(QtWarningMsg, "whether a day is off is unknown: locked");
    QCOMPARE(bench.Next(id), u"11/16 7:00"_s);
    bench.PassUntil(u"1998-11-16T07:00:00"_s);
    QTest::ignoreMessage(QtWarningMsg, "whether a day is off is unknown: locked");
    QCOMPARE(Told(bench.list.TakeDue()), kRings);
}

void TstAlarmList::TheNextRingIsSkippedOnce() {
    AlarmBench bench;
    const qint64 id = bench.list.Add(AlarmAt(7, 0));
    bench.list.SkipNext(id, true);
    QVERIFY(bench.list.IsNextSkipped(*bench.list.Find(id)));
    QCOMPARE(bench.Next(id), u"11/17 7:00"_s);
    AlarmList next = bench.Restarted(0);
    bench.PassUntil(u"1998-11-16T07:00:00"_s);
    QVERIFY(next.TakeDue().calls.isEmpty());
    QVERIFY(!next.IsNextSkipped(*next.Find(id)));
    bench.PassUntil(u"1998-11-17T07:00:00"_s);
    QCOMPARE(Told(next.TakeDue()), kRings);
}

void TstAlarmList::SkippingIsTakenBack() {
    AlarmBench bench;
    const qint64 id = bench.list.Add(AlarmAt(7, 0));
    bench.list.SkipNext(id, true);
    bench.list.SkipNext(id, true);  // still the next one, not the one after that
    QCOMPARE(bench.Next(id), u"11/17 7:00"_s);
    bench.list.SkipNext(id, false);
    QVERIFY(!bench.list.IsNextSkipped(*bench.list.Find(id)));
    QCOMPARE(bench.Next(id), u"11/16 7:00"_s);
    bench.list.SkipNext(id, true);
    bench.list.SetOn(id, false);
    bench.list.SetOn(id, true);
    QCOMPARE(bench.Next(id), u"11/16 7:00"_s);
}

void TstAlarmList::ASkippedRingIsNotMissed() {
    AlarmBench bench;
    const qint64 id = bench.list.Add(AlarmAt(7, 0));
    bench.list.SkipNext(id, true);
    AlarmList next = bench.Restarted(12 * kHour);  // 9:05:07
    QVERIFY(next.TakeDue().calls.isEmpty());
}

void TstAlarmList::TwoAreSkippedInTurn() {
    AlarmBench bench;
    const qint64 id = bench.list.Add(AlarmAt(7, 0));
    bench.list.SkipNext(id, true);
    bench.PassUntil(u"1998-11-16T07:00:00"_s);
    QCOMPARE(bench.list.UntilDue(), 0);
    QVERIFY(bench.list.TakeDue().calls.isEmpty());
    bench.PassUntil(u"1998-11-16T07:05:00"_s);
    bench.list.SkipNext(id, true);
    QCOMPARE(bench.Next(id), u"11/18 7:00"_s);
    QVERIFY(bench.list.TakeDue().calls.isEmpty());
    bench.list.SkipNext(id, false);
    QVERIFY(bench.list.TakeDue().calls.isEmpty());
    bench.PassUntil(u"1998-11-17T07:00:00"_s);
    QCOMPARE(Told(bench.list.TakeDue()), kRings);
}

void TstAlarmList::WhatPassedWhileItWasOffIsNotMadeUp() {
    AlarmBench bench;
    const qint64 id = bench.list.Add(AlarmAt(21, 10));
    bench.list.SetOn(id, false);
    bench.PassUntil(u"1998-11-15T21:12:00"_s);
    QVERIFY(bench.list.TakeDue().calls.isEmpty());
    bench.list.SetOn(id, true);
    QVERIFY(bench.list.TakeDue().calls.isEmpty());
    QCOMPARE(bench.Next(id), u"11/16 21:10"_s);
}

void TstAlarmList::AChangeBeginsNow() {
    AlarmBench bench;
    const qint64 id = bench.list.Add(AlarmAt(7, 0));
    bench.list.SkipNext(id, true);
    bench.list.SetOn(id, false);
    KeptAlarm other = AlarmAt(21, 0, AlarmDays::Chosen);
    other.weekdays = 1;  // Monday
    other.once = QDate(1998, 11, 20);
    bench.list.Change(id, other);
    QCOMPARE(bench.Next(id), u"11/16 21:00"_s);
    QVERIFY(bench.list.TakeDue().calls.isEmpty());
    QCOMPARE(bench.store.kept.size(), 1);
    QVERIFY(bench.store.kept[0].isOn);
    QVERIFY(!bench.store.kept[0].skipped.isValid());
    QVERIFY(!bench.store.kept[0].once.isValid());
}

void TstAlarmList::TwoAlarmsOfOneMinute() {
    AlarmBench bench;
    KeptAlarm alarm = AlarmAt(21, 10);
    bench.list.Add(alarm);
    alarm.name = u"薬"_s;
    alarm.time = QTime(21, 8);
    bench.list.Add(alarm);
    bench.PassUntil(u"1998-11-15T21:10:00"_s);
    QCOMPARE(Told(bench.list.TakeDue()), (QStringList{u"薬2"_s, u"起床0"_s}));
    QCOMPARE(bench.store.writes, 3);  // both in one
}

QTEST_GUILESS_MAIN(TstAlarmList)
#include "tst_alarm_list.moc"
