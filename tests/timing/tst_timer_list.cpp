// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "timing/timer_list_bench.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

/// The list of timers on the clock.
class TstTimerList : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ATimerEndsOnce();
    void APauseIsNotCounted();
    void AResetStopsAtTheBeginning();
    void AnEndedTimerBeginsAgain();
    void SeveralEndsComeInTheirOrder();
    void AChainRepeats();
    void AChainSuspendedForWeeksTellsItsLastEnd();
    void AChainContinuesAfterARestart();
    void ASetClockChangesNothing();
    void TheStoredEndFollowsASetClock();
    void ARestartContinues();
    void AnEndWhileAwayIsToldOnce();
    void AClockSetBackWhileAwayMakesNoTimerLonger();
    void APauseSurvivesARestart();
    void AnEndIsToldAgain();
    void AStartForgetsWhatWasToBeToldAgain();
    void ARemovedTimerDoesNotEnd();
    void ATimerThatIsDueCannotBePaused();
};

void TstTimerList::ATimerEndsOnce() {
    Bench bench;
    const qint64 tea = bench.list.Add(kTea);
    QVERIFY(!bench.list.UntilDue());
    bench.list.Start(tea);
    QCOMPARE(bench.list.UntilDue(), 4 * kMinute);
    bench.Pass(4 * kMinute - 1);
    QVERIFY(bench.list.TakeDue().ends.isEmpty());
    QCOMPARE(bench.Remaining(tea), 1);
    bench.Pass(1);
    const DueTimers due = bench.list.TakeDue();
    QCOMPARE(due.ends, (QList<TimerEnd>{{.id = tea, .name = u"紅茶"_s, .ago = 0, .sound = u"TKW01.wav"_s}}));
    QCOMPARE(due.failure, QString());
    QCOMPARE(bench.Phase(tea), TimerPhase::Ended);
    QCOMPARE(bench.Remaining(tea), 0);
    QVERIFY(bench.list.TakeDue().ends.isEmpty());
    QVERIFY(!bench.list.UntilDue());
}

void TstTimerList::APauseIsNotCounted() {
    Bench bench;
    const qint64 tea = bench.list.Add(kTea);
    bench.list.Start(tea);
    bench.Pass(kMinute);
    bench.list.Pause(tea);
    bench.Pass(60 * kMinute);
    QCOMPARE(bench.Remaining(tea), 3 * kMinute);
    QVERIFY(bench.list.TakeDue().ends.isEmpty());
    bench.list.Start(tea);
    bench.Pass(3 * kMinute - 1);
    QVERIFY(bench.list.TakeDue().ends.isEmpty());
    bench.Pass(1);
    QCOMPARE(Names(bench.list.TakeDue()), QStringList(u"紅茶"_s));
}

void TstTimerList::AResetStopsAtTheBeginning() {
    Bench bench;
    const qint64 work = bench.list.Add(kWork);
    bench.list.Start(work);
    bench.Pass(26 * kMinute);
    bench.list.TakeDue();
    QCOMPARE(bench.list.Find(work)->kept.stage, 1);
    bench.list.Reset(work);
    QCOMPARE(bench.Phase(work), TimerPhase::Idle);
    QCOMPARE(bench.Remaining(work), 25 * kMinute);
    QVERIFY(!bench.list.UntilDue());
    QCOMPARE(bench.store.kept.timers.front(), bench.list.Find(work)->kept);
}

void TstTimerList::AnEndedTimerBeginsAgain() {
    Bench bench;
    const qint64 tea = bench.list.Add(kTea);
    bench.list.Start(tea);
    bench.Pass(4 * kMinute);
    bench.list.TakeDue();
    bench.list.Start(tea);
    QCOMPARE(bench.Remaining(tea), 4 * kMinute);
    bench.list.Start(tea);  // running already: no second start
    bench.Pass(kMinute);
    bench.list.Start(tea);
    QCOMPARE(bench.Remaining(tea), 3 * kMinute);
}

void TstTimerList::SeveralEndsComeInTheirOrder() {
    Bench bench;
    TimerPlan noodles = kTea;
    noodles.name = u"カップ麺"_s;
    noodles.milliseconds = 3 * kMinute;
    const qint64 tea = bench.list.Add(kTea);
    const qint64 cup = bench.list.Add(noodles);
    bench.list.Start(tea);
    bench.list.Start(cup);
    QCOMPARE(bench.list.UntilDue(), 3 * kMinute);
    bench.Pass(5 * kMinute);
    const DueTimers due = bench.list.TakeDue();
    QCOMPARE(Names(due), (QStringList{u"カップ麺"_s, u"紅茶"_s}));
    QCOMPARE(due.ends[0].ago, 2 * kMinute);
    QCOMPARE(due.ends[1].ago, kMinute);
}

void TstTimerList::AChainRepeats() {
    Bench bench;
    const qint64 work = bench.list.Add(kWork);
    bench.list.Start(work);
    for (int round = 0; round < 3; ++round) {
        bench.Pass(25 * kMinute);
        QCOMPARE(Names(bench.list.TakeDue()), QStringList(u"集中"_s));
        QCOMPARE(bench.Remaining(work), 5 * kMinute);
        bench.Pass(5 * kMinute - 1);
        QVERIFY(bench.list.TakeDue().ends.isEmpty());
        bench.Pass(1);
        QCOMPARE(Names(bench.list.TakeDue()), QStringList(u"休憩"_s));
        QCOMPARE(bench.Remaining(work), 25 * kMinute);
    }
}

void TstTimerList::AChainSuspendedForWeeksTellsItsLastEnd() {
    Bench bench;
    const qint64 work = bench.list.Add(kWork);
    bench.list.Start(work);
    bench.Pass(30 * kMinute * 1000 + 27 * kMinute);  // 1000 rounds, and two minutes into the break
    const DueTimers due = bench.list.TakeDue();
    QCOMPARE(due.ends.size(), 1);
    QCOMPARE(due.ends[0].name, u"集中"_s);
    QCOMPARE(due.ends[0].ago, 2 * kMinute);
    QCOMPARE(bench.Remaining(work), 3 * kMinute);
    bench.Pass(3 * kMinute);
    QCOMPARE(Names(bench.list.TakeDue()), QStringList(u"休憩"_s));
    bench.Pass(30 * kMinute);  // exactly one round later
    const DueTimers later = bench.list.TakeDue();
    QCOMPARE(Names(later), QStringList(u"休憩"_s));
    QCOMPARE(later.ends[0].ago, 0);
    QCOMPARE(bench.Remaining(work), 25 * kMinute);
}

void TstTimerList::AChainContinuesAfterARestart() {
    Bench bench;
    const qint64 work = bench.list.Add(kWork);
    bench.list.Start(work);
    bench.Pass(26 * kMinute);
    bench.list.TakeDue();
    TimerList next = bench.Restarted(kMinute);
    QVERIFY(next.TakeDue().ends.isEmpty());
    QCOMPARE(next.Remaining(*next.Find(work)), 3 * kMinute);
    bench.Pass(3 * kMinute);
    QCOMPARE(Names(next.TakeDue()), QStringList(u"休憩"_s));
}

void TstTimerList::ASetClockChangesNothing() {
    Bench bench;
    const qint64 tea = bench.list.Add(kTea);
    bench.list.Start(tea);
    bench.time.now = bench.time.now.addDays(3);
    QVERIFY(bench.list.TakeDue().ends.isEmpty());
    bench.time.now = bench.time.now.addDays(-6);
    bench.Pass(4 * kMinute);
    QCOMPARE(Names(bench.list.TakeDue()), QStringList(u"紅茶"_s));
    QVERIFY(bench.list.TakeDue().ends.isEmpty());
}

void TstTimerList::TheStoredEndFollowsASetClock() {
    Bench bench;
    const qint64 tea = bench.list.Add(kTea);
    bench.list.Start(tea);
    bench.list.TellAgain({tea}, 6 * kMinute);
    bench.time.now = bench.time.now.addSecs(3600);
    QCOMPARE(bench.list.FollowClock(), QString());
    QCOMPARE(bench.store.kept.timers[0].endsAt, bench.time.now.toMSecsSinceEpoch() + 4 * kMinute);
    QCOMPARE(bench.store.kept.timers[0].againAt, bench.time.now.toMSecsSinceEpoch() + 6 * kMinute);
    TimerList next = bench.Restarted(kMinute);
    QCOMPARE(next.Remaining(*next.Find(tea)), 3 * kMinute);
    const int writes = bench.store.writes;
    bench.time.now = bench.time.now.addMSecs(999);  // a time server's correction is not worth a write
    QCOMPARE(next.FollowClock(), QString());
    QCOMPARE(bench.store.writes, writes);
    bench.store.isFull = true;
    bench.time.now = bench.time.now.addSecs(60);
    QCOMPARE(next.FollowClock(), u"full"_s);
}

void TstTimerList::ARestartContinues() {
    Bench bench;
    const qint64 tea = bench.list.Add(kTea);
    bench.list.Start(tea);
    bench.Pass(kMinute);
    TimerList next = bench.Restarted(kMinute);
    QCOMPARE(next.Remaining(*next.Find(tea)), 2 * kMinute);
    QVERIFY(next.TakeDue().ends.isEmpty());
    bench.Pass(2 * kMinute);
    QCOMPARE(Names(next.TakeDue()), QStringList(u"紅茶"_s));
}

void TstTimerList::AnEndWhileAwayIsToldOnce() {
    Bench bench;
    const qint64 tea = bench.list.Add(kTea);
    bench.list.Start(tea);
    TimerList next = bench.Restarted(16 * kMinute);
    const DueTimers due = next.TakeDue();
    QCOMPARE(Names(due), QStringList(u"紅茶"_s));
    QCOMPARE(due.ends[0].ago, 12 * kMinute);
    QVERIFY(bench.Restarted(kMinute).TakeDue().ends.isEmpty());
}

void TstTimerList::AClockSetBackWhileAwayMakesNoTimerLonger() {
    Bench bench;
    const qint64 tea = bench.list.Add(kTea);
    bench.list.Start(tea);
    bench.time.now = bench.time.now.addDays(-1);
    TimerList next = bench.Restarted(0);
    QCOMPARE(next.Remaining(*next.Find(tea)), 4 * kMinute);
}

void TstTimerList::APauseSurvivesARestart() {
    Bench bench;
    const qint64 tea = bench.list.Add(kTea);
    bench.list.Start(tea);
    bench.Pass(kMinute);
    bench.list.Pause(tea);
    TimerList next = bench.Restarted(1000 * kMinute);
    QVERIFY(next.TakeDue().ends.isEmpty());
    QCOMPARE(next.Remaining(*next.Find(tea)), 3 * kMinute);
}

void TstTimerList::AnEndIsToldAgain() {
    Bench bench;
    const qint64 tea = bench.list.Add(kTea);
    const qint64 work = bench.list.Add(kWork);
    bench.list.Start(tea);
    bench.list.Start(work);
    bench.Pass(25 * kMinute);
    bench.list.TakeDue();
    bench.list.TellAgain({tea, work, 12345}, 2 * kMinute);
    QCOMPARE(bench.list.UntilDue(), 2 * kMinute);
    bench.Pass(2 * kMinute);
    QCOMPARE(Names(bench.list.TakeDue()), (QStringList{u"紅茶"_s, u"集中"_s}));
    QCOMPARE(bench.Remaining(work), 3 * kMinute);  // the chain goes on meanwhile
    QVERIFY(bench.list.TakeDue().ends.isEmpty());
}

void TstTimerList::AStartForgetsWhatWasToBeToldAgain() {
    Bench bench;
    const qint64 tea = bench.list.Add(kTea);
    bench.list.TellAgain({tea}, 5 * kMinute);
    bench.list.Start(tea);
    QCOMPARE(bench.list.UntilDue(), 4 * kMinute);
    bench.list.TellAgain({tea}, kMinute);
    bench.list.Reset(tea);
    QVERIFY(!bench.list.UntilDue());
}

void TstTimerList::ARemovedTimerDoesNotEnd() {
    Bench bench;
    const qint64 tea = bench.list.Add(kTea);
    bench.list.Start(tea);
    bench.list.Remove(tea);
    bench.list.Start(tea);  // gone
    bench.list.Pause(tea);
    bench.list.Reset(tea);
    bench.list.Remove(tea);
    bench.Pass(5 * kMinute);
    QVERIFY(bench.list.TakeDue().ends.isEmpty());
    QVERIFY(bench.store.kept.timers.isEmpty());
}

void TstTimerList::ATimerThatIsDueCannotBePaused() {
    Bench bench;
    const qint64 tea = bench.list.Add(kTea);
    bench.list.Start(tea);
    bench.Pass(4 * kMinute);
    bench.list.Pause(tea);
    QCOMPARE(Names(bench.list.TakeDue()), QStringList(u"紅茶"_s));
}

QTEST_GUILESS_MAIN(TstTimerList)
#include "tst_timer_list.moc"
