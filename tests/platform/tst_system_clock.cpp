// SPDX-License-Identifier: GPL-3.0-or-later
#include <QFile>
#include <QTest>
#include <ctime>

#include "core/integers.h"
#include "platform/time/system_clock.h"

using namespace tickwell;
using namespace tickwell::platform;

/// The machine's clocks, compared with other sources of the same times.
class TstSystemClock : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void NowIsLocalTime();
    void TickCountsFromTheStartOfTheMachine();
    void TickNeverGoesBack();
    void TheTimeSinceBootIncludesSuspend();
};

void TstSystemClock::NowIsLocalTime() {
    const SystemClock clock;
    const QDateTime before = QDateTime::currentDateTimeUtc();
    const QDateTime now = clock.Now();
    const QDateTime after = QDateTime::currentDateTimeUtc();
    QVERIFY(before <= now && now <= after);
    QCOMPARE(now.timeSpec(), Qt::LocalTime);
    QCOMPARE(now.offsetFromUtc(), 9 * 3600);  // the tests run in Asia/Tokyo
}

void TstSystemClock::TickCountsFromTheStartOfTheMachine() {
    const SystemClock clock;
    const auto uptime = [] {  // seconds with two decimals, suspend included
        QFile file(QStringLiteral("/proc/uptime"));
        return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').constFirst().toDouble() : -1.0;
    };
    const auto before = static_cast<qint64>(uptime() * 1000);
    const quint32 tick = static_cast<quint32>(clock.Tick());
    const auto after = static_cast<qint64>(uptime() * 1000) + 10;
    QVERIFY(before > 0);
    QVERIFY(tick - static_cast<quint32>(before) <= static_cast<quint32>(after - before));
}

void TstSystemClock::TickNeverGoesBack() {
    const SystemClock clock;
    qint32 last = clock.Tick();
    for (int i = 0; i < 100000; ++i) {
        const qint32 tick = clock.Tick();
        QVERIFY(TicksSince(last, tick) < 60'000U);
        last = tick;
    }
}

void TstSystemClock::TheTimeSinceBootIncludesSuspend() {
    const auto bootTime = [] {
        timespec time{};
        return clock_gettime(CLOCK_BOOTTIME, &time) == 0
                   ? time.tv_sec * qint64{1000} + time.tv_nsec / 1'000'000
                   : -1;
    };
    const SystemClock clock;
    const qint64 before = bootTime();
    const qint64 now = clock.SinceBoot();
    const qint64 after = bootTime();
    QVERIFY(before > 0);
    QVERIFY(before <= now && now <= after);
}

QTEST_GUILESS_MAIN(TstSystemClock)
#include "tst_system_clock.moc"
