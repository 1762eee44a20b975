// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "core/throttle.h"
#include "platform/time/virtual_time.h"

using namespace tickwell;

namespace {

struct Bench {
    platform::VirtualTime time;
    QList<qint32> ran;
    Throttle throttle{time, time, 250, [this] { ran.append(time.Tick()); }};

    explicit Bench(qint64 tick = 0) : time(QDateTime(QDate(1998, 10, 3), QTime(12, 0)), tick) {}
};

}  // namespace

/// At most one run per interval.
class TstThrottle : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheFirstRequestRunsAtOnceAndNeedsNoTimer();
    void ARequestAfterAPauseRunsAtOnce();
    void RequestsThatComeTooEarlyRunOnceWhenTheIntervalIsOver();
    void ManyRequestsRunOnceAnInterval();
    void TheTurnOfTheTickCounterMakesNoDifference();
};

void TstThrottle::TheFirstRequestRunsAtOnceAndNeedsNoTimer() {
    Bench bench;
    bench.throttle.Request();
    QCOMPARE(bench.ran, QList<qint32>{0});
    QCOMPARE(bench.time.UntilNext(), std::nullopt);
}

void TstThrottle::ARequestAfterAPauseRunsAtOnce() {
    Bench bench;
    bench.throttle.Request();
    bench.time.Advance(250);
    bench.throttle.Request();
    QCOMPARE(bench.ran, (QList<qint32>{0, 250}));
    QCOMPARE(bench.time.UntilNext(), std::nullopt);
}

void TstThrottle::RequestsThatComeTooEarlyRunOnceWhenTheIntervalIsOver() {
    Bench bench;
    bench.throttle.Request();
    bench.time.Advance(100);
    bench.throttle.Request();
    bench.time.Advance(100);
    bench.throttle.Request();
    bench.time.Advance(1000);
    QCOMPARE(bench.ran, (QList<qint32>{0, 250}));
    QCOMPARE(bench.time.UntilNext(), std::nullopt);
}

void TstThrottle::ManyRequestsRunOnceAnInterval() {
    Bench bench;
    for (int ms = 0; ms < 10'000; ++ms) {
        bench.throttle.Request();
        bench.time.Advance(1);
    }
    QCOMPARE(bench.ran.size(), 41);  // at 0, then every 250 ms up to and including 10000
}

void TstThrottle::TheTurnOfTheTickCounterMakesNoDifference() {
    Bench bench(2147483647);
    bench.throttle.Request();
    bench.time.Advance(1);
    bench.throttle.Request();
    QCOMPARE(bench.ran.size(), 1);
    QCOMPARE(bench.time.UntilNext(), std::optional<qint64>(249));
}

QTEST_GUILESS_MAIN(TstThrottle)
#include "tst_throttle.moc"
