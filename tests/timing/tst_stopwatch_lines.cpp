// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "platform/time/virtual_time.h"
#include "support/fake_text_line.h"
#include "timing/stopwatch_lines.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

namespace {

struct Bench {
    platform::VirtualTime time{QDateTime(QDate(1998, 11, 15), QTime(21, 5, 7)), 307'000};
    StopwatchState state;
    Stopwatch stopwatch{state, time};
    FakeTextLine upper;
    FakeTextLine lower;
    StopwatchLines lines{stopwatch, {.upper = upper, .lower = lower}};
};

}  // namespace

/// The reading on the main window.
class TstStopwatchLines : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ChoosingItWipesTheReadingIn();
    void EachTickReplacesTheReading();
    void TheReadingDoesNotDependOnHowOftenTicksCome();
    void AStoppedStopwatchDoesNotShowTheUptime();
    void AStoppedReadingLetsTheWipeFinish();
    void TheUpperLineIsNotTouched();
    void TheNextFrameIsDueWhileItRuns();
};

void TstStopwatchLines::ChoosingItWipesTheReadingIn() {
    Bench bench;
    bench.lines.Show();
    QCOMPARE(bench.lower.TakeRecord(), QStringList{u"show 0:00'00\"000"_s});
    bench.stopwatch.Start();
    bench.time.Advance(3'723'004);
    bench.lines.Show();
    QCOMPARE(bench.lower.TakeRecord(), QStringList{u"show 1:02'03\"004"_s});
}

void TstStopwatchLines::EachTickReplacesTheReading() {
    Bench bench;
    const auto timer = bench.time.Create(1, [&bench] { bench.lines.Tick(); });
    bench.stopwatch.Start();
    timer->Start();
    bench.time.Advance(3);
    QCOMPARE(bench.lower.TakeRecord(),
             (QStringList{u"set 0:00'00\"001"_s, u"set 0:00'00\"002"_s, u"set 0:00'00\"003"_s}));
}

void TstStopwatchLines::TheReadingDoesNotDependOnHowOftenTicksCome() {
    Bench bench;
    bench.stopwatch.Start();
    bench.time.Advance(61'001);  // no tick for a minute, then three at once
    bench.lines.Tick();
    bench.lines.Tick();
    bench.lines.Tick();
    QCOMPARE(bench.lower.Text(), u"0:01'01\"001"_s);
}

void TstStopwatchLines::AStoppedStopwatchDoesNotShowTheUptime() {
    Bench bench;
    bench.lines.Tick();
    QCOMPARE(bench.lower.Text(), u"0:00'00\"000"_s);
    bench.stopwatch.Start();
    bench.time.Advance(1500);
    bench.stopwatch.Stop();
    bench.time.Advance(1500);
    bench.lines.Tick();
    QCOMPARE(bench.lower.Text(), u"0:00'01\"500"_s);
}

void TstStopwatchLines::AStoppedReadingLetsTheWipeFinish() {
    Bench bench;
    bench.lines.Show();
    bench.lower.TakeRecord();
    bench.lines.Tick();
    QVERIFY(bench.lower.TakeRecord().isEmpty());
}

void TstStopwatchLines::TheUpperLineIsNotTouched() {
    Bench bench;
    bench.lines.Show();
    bench.stopwatch.Start();
    bench.time.Advance(5);
    bench.lines.Tick();
    QVERIFY(bench.upper.TakeRecord().isEmpty());
}

void TstStopwatchLines::TheNextFrameIsDueWhileItRuns() {
    Bench bench;
    QVERIFY(bench.lines.UntilDue(17) >= 60'000);  // it is stopped
    bench.stopwatch.Start();
    QCOMPARE(bench.lines.UntilDue(17), qint64{17});
    QCOMPARE(bench.lines.UntilDue(60'000), qint64{60'000});
    bench.stopwatch.Stop();
    QVERIFY(bench.lines.UntilDue(17) >= 60'000);
}

QTEST_GUILESS_MAIN(TstStopwatchLines)
#include "tst_stopwatch_lines.moc"
