// SPDX-License-Identifier: GPL-3.0-or-later
#include <QSignalSpy>
#include <QTest>

#include "platform/time/qt_timers.h"

using namespace tickwell;
using namespace tickwell::platform;

/// Timers of the event loop. Only order and idleness are tested, no durations.
class TstQtTimers : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ATimerDoesNotTickUntilItIsStarted();
    void AnIntervalOfZeroIsNotABusyLoop();
    void ANegativeIntervalTicks();
    void ATimerIsNotDeliveredInsideItsOwnTick();
};

void TstQtTimers::ATimerDoesNotTickUntilItIsStarted() {
    QtTimers timers;
    int ticks = 0;
    const auto timer = timers.Create(1, [&] { ++ticks; });
    QVERIFY(!timer->IsRunning());
    timer->SetInterval(2);
    QVERIFY(!timer->IsRunning());
    timer->Start();
    QVERIFY(timer->IsRunning());
    QTRY_VERIFY(ticks >= 3);
    timer->Stop();
    QVERIFY(!timer->IsRunning());
    const int atStop = ticks;
    QCoreApplication::processEvents();
    QCOMPARE(ticks, atStop);
}

void TstQtTimers::AnIntervalOfZeroIsNotABusyLoop() {
    QtTimers timers;
    int ticks = 0;
    const auto timer = timers.Create(0, [&] { ++ticks; });
    timer->Start();
    // A timer of 0 ms would tick in every iteration of the event loop.
    int turns = 0;
    while (ticks < 3) {
        QCoreApplication::processEvents();
        ++turns;
    }
    QVERIFY(turns > 3);
}

void TstQtTimers::ANegativeIntervalTicks() {
    QtTimers timers;
    int ticks = 0;
    const auto timer = timers.Create(-5, [&] { ++ticks; });
    timer->Start();
    QTRY_VERIFY(ticks > 0);
}

void TstQtTimers::ATimerIsNotDeliveredInsideItsOwnTick() {
    QtTimers timers;
    int depth = 0;
    int deepest = 0;
    int ticks = 0;
    const auto timer = timers.Create(1, [&] {
        deepest = std::max(deepest, ++depth);
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        --depth;
        ++ticks;
    });
    timer->Start();
    QTRY_VERIFY(ticks >= 3);
    QCOMPARE(deepest, 1);
}

QTEST_GUILESS_MAIN(TstQtTimers)
#include "tst_qt_timers.moc"
