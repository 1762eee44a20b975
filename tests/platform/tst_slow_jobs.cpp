// SPDX-License-Identifier: GPL-3.0-or-later
#include <QElapsedTimer>
#include <QTest>
#include <semaphore>
#include <thread>

#include "platform/processes/slow_jobs.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::seconds kLong{30};        // only a failing test waits this long
constexpr std::chrono::milliseconds kShort{50};  // always waited for in full
constexpr int kMostWaited = 10'000;              // ms; a tenth of a second on an idle machine

}  // namespace

/// Jobs that may hang without blocking anything.
class TstSlowJobs : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AJobIsDoneOnAnotherThread();
    void JobsAreDoneInTheirOrder();
    void AHangingJobIsWaitedForOnlyBriefly();
    void DestructionWaitsForTheJobs();
    void DestructionDoesNotWaitForAHangingJob();
};

void TstSlowJobs::AJobIsDoneOnAnotherThread() {
    SlowJobs jobs(kLong);
    std::thread::id thread;
    jobs.Do([&] { thread = std::this_thread::get_id(); });
    QVERIFY(jobs.Wait(kLong));
    QVERIFY(thread != std::thread::id());
    QVERIFY(thread != std::this_thread::get_id());
}

void TstSlowJobs::JobsAreDoneInTheirOrder() {
    SlowJobs jobs(kLong);
    QString order;
    for (const char16_t letter : u"abcdefgh"_s.toStdU16String()) {
        jobs.Do([&order, letter] { order += letter; });
    }
    QVERIFY(jobs.Wait(kLong));
    QCOMPARE(order, u"abcdefgh"_s);
    jobs.Do([&] { order += u'!'; });  // after an idle phase
    QVERIFY(jobs.Wait(kLong));
    QCOMPARE(order, u"abcdefgh!"_s);
}

void TstSlowJobs::AHangingJobIsWaitedForOnlyBriefly() {
    std::binary_semaphore hangs(0);
    bool isDone = false;
    SlowJobs jobs(kLong);
    jobs.Do([&] { hangs.acquire(); });
    jobs.Do([&] { isDone = true; });
    QVERIFY(!jobs.Wait(kShort));
    QVERIFY(!isDone);
    hangs.release();
    QVERIFY(jobs.Wait(kLong));
    QVERIFY(isDone);
}

void TstSlowJobs::DestructionWaitsForTheJobs() {
    bool isDone = false;
    {
        SlowJobs jobs(kLong);
        jobs.Do([] { std::this_thread::yield(); });
        jobs.Do([&] { isDone = true; });
    }
    QVERIFY(isDone);
}

void TstSlowJobs::DestructionDoesNotWaitForAHangingJob() {
    const auto hangs = std::make_shared<std::binary_semaphore>(0);
    const auto isDone = std::make_shared<std::binary_semaphore>(0);
    QElapsedTimer clock;
    clock.start();
    {
        SlowJobs jobs(kShort);
        jobs.Do([hangs, isDone] {
            hangs->acquire();
            isDone->release();
        });
    }
    QVERIFY2(clock.elapsed() < kMostWaited, qPrintable(QString::number(clock.elapsed())));
    hangs->release();
    QVERIFY(isDone->try_acquire_for(kLong));  // the thread outlives its owner
}

QTEST_GUILESS_MAIN(TstSlowJobs)
#include "tst_slow_jobs.moc"
