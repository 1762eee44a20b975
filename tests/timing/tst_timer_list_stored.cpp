// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "timing/timer_list_bench.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

/// What the list of timers stores, and what happens if it cannot.
class TstTimerListStored : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ToldAgainAfterARestart();
    void TwentyTimersAtMost();
    void AFailedStoreChangesNothing();
    void AnEndIsToldOnceThoughItCannotBeStored();
    void PresetsAreKept();
};

void TstTimerListStored::ToldAgainAfterARestart() {
    Bench bench;
    const qint64 tea = bench.list.Add(kTea);
    bench.list.Start(tea);
    bench.Pass(4 * kMinute);
    bench.list.TakeDue();
    bench.list.TellAgain({tea}, 5 * kMinute);
    TimerList next = bench.Restarted(3 * kMinute);
    QCOMPARE(next.UntilDue(), 2 * kMinute);
    bench.Pass(2 * kMinute);
    QCOMPARE(Names(next.TakeDue()), QStringList(u"紅茶"_s));
}

void TstTimerListStored::TwentyTimersAtMost() {
    Bench bench;
    for (int i = 0; i < 20; ++i) {
        bench.list.Add(kTea);
    }
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.list.Add(kTea));
    QCOMPARE(bench.list.Rows().size(), 20U);
    QCOMPARE(bench.store.kept.timers.size(), 20);
}

void TstTimerListStored::AFailedStoreChangesNothing() {
    Bench bench;
    const qint64 tea = bench.list.Add(kTea);
    const qint64 other = bench.list.Add(kWork);
    bench.list.Start(other);
    bench.store.isFull = true;
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.list.Start(tea));
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.list.Pause(other));
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.list.Reset(other));
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.list.Remove(other));
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.list.Add(kTea));
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.list.AddPreset(kTea));
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.list.TellAgain({tea}, kMinute));
    QCOMPARE(bench.Phase(tea), TimerPhase::Idle);
    QCOMPARE(bench.Phase(other), TimerPhase::Running);
    QCOMPARE(bench.list.Rows().size(), 2U);
    QVERIFY(bench.list.Presets().isEmpty());
    QCOMPARE(bench.list.UntilDue(), 25 * kMinute);
}

void TstTimerListStored::AnEndIsToldOnceThoughItCannotBeStored() {
    Bench bench;
    const qint64 tea = bench.list.Add(kTea);
    bench.list.Start(tea);
    bench.Pass(4 * kMinute);
    bench.store.isFull = true;
    const DueTimers due = bench.list.TakeDue();
    QCOMPARE(Names(due), QStringList(u"紅茶"_s));
    QCOMPARE(due.failure, u"full"_s);
    QVERIFY(bench.list.TakeDue().ends.isEmpty());
}

void TstTimerListStored::PresetsAreKept() {
    Bench bench;
    bench.list.AddPreset(kTea);
    bench.list.AddPreset(kWork);
    bench.list.RemovePreset(bench.list.Presets().front().id);
    TimerList next = bench.Restarted(0);
    QCOMPARE(next.Presets().size(), 1);
    QCOMPARE(next.Presets().front().plan, kWork);
}

QTEST_GUILESS_MAIN(TstTimerListStored)
#include "tst_timer_list_stored.moc"
