// SPDX-License-Identifier: GPL-3.0-or-later
// How often the running stopwatch ticks, and how often its line is painted, within some seconds of real time;
// and the cost of a tick. The line is shown on the current desktop. Prints a table; never fails because of
// times.

#include <QApplication>
#include <QScreen>
#include <QTimer>
#include <cstdio>
#include <ctime>

#include "core/sleeping_timer.h"
#include "lines/line_look.h"
#include "lines/moving_word.h"
#include "platform/desktop/qt_message_boxes.h"
#include "platform/time/qt_timers.h"
#include "platform/time/system_clock.h"
#include "timing/stopwatch_lines.h"

namespace {

using namespace tickwell;
using namespace Qt::StringLiterals;

constexpr QSize kLine(167, 20);
constexpr int kSeconds = 10;

/// A line that counts its paints.
class CountedWord : public lines::MovingWord {
public:
    using lines::MovingWord::MovingWord;
    int paints = 0;

protected:
    void paintEvent(QPaintEvent* event) override {
        ++paints;
        lines::MovingWord::paintEvent(event);
    }
};

/// The CPU time of this program in milliseconds.
double ProcessorTime() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1000.0 + static_cast<double>(time.tv_nsec) / 1e6;
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    lines::InstallFontSubstitutes();
    const platform::SystemClock clock;
    platform::QtTimers timers;
    lines::FramePacer pacer(clock, timers);
    CountedWord upper({clock, timers, pacer}, nullptr);
    CountedWord lower({clock, timers, pacer}, nullptr);
    lower.setFixedSize(kLine);
    lower.setFont(lines::FontOf({u"ＭＳ Ｐゴシック"_s, 10}));
    lower.show();

    timing::StopwatchState state;
    timing::Stopwatch stopwatch(state, clock);
    timing::StopwatchLines lines(stopwatch, {.upper = upper, .lower = lower});
    int ticks = 0;
    platform::QtMessageBoxes boxes;
    Handlers handlers(boxes);
    SleepingTimer timer(
        handlers, timers, 1,
        [&] {
            ++ticks;
            lines.Tick();
        },
        [&] { return lines.UntilDue(pacer.UntilFrame()); });
    stopwatch.Start();
    timer.Start();
    const double before = ProcessorTime();
    QTimer::singleShot(kSeconds * 1000, &application, [] { QCoreApplication::quit(); });
    QCoreApplication::exec();
    const double used = ProcessorTime() - before;

    const double seconds = stopwatch.Reading() / 1000.0;
    std::printf("ticks          %8.1f a second\n", ticks / seconds);
    std::printf("paints         %8.1f a second   (the screen: %.1f)\n", lower.paints / seconds,
                application.primaryScreen()->refreshRate());
    std::printf("CPU time       %8.1f ms a minute, %.1f us a tick\n", used / seconds * 60,
                used * 1000 / ticks);
    return 0;
}
