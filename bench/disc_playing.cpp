// SPDX-License-Identifier: GPL-3.0-or-later
// disc_playing HELPER FAKE_DRIVE [SECONDS]: the cost of playing an audio CD, with the player's window and the
// main window's lines. Measured with an image, and with a drive that needs 100 ms per read and has one
// unreadable sector; each before playing, while playing and after stopping, for SECONDS each (default: 20).
// Prints the CPU time per minute of this process and of its helper, the open devices, and the longest gap of
// the event loop, by which a click could have been delayed. It never fails because of times. SDL_AUDIODRIVER
// selects where the sound goes; windows are shown on the current desktop.

#include <sys/resource.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <cstdio>

#include "discs/test_disc.h"
#include "lines/line_look.h"
#include "lines/moving_word.h"
#include "media/cd_lines.h"
#include "media/cd_window.h"
#include "media/media_system.h"
#include "platform/disc/cd_helper_drive.h"
#include "platform/disc/qt_event_wait.h"
#include "platform/sound/helper_sound_output.h"
#include "platform/time/qt_timers.h"
#include "platform/time/system_clock.h"
#include "support/fake_message_boxes.h"
#include "support/files.h"

namespace {

using namespace tickwell;
using namespace Qt::StringLiterals;

constexpr int kPulse = 5;           // ms between two events that measure the event loop
constexpr int kUntilClosed = 1000;  // ms until a stopped disc's device is closed
constexpr int kRefresh = 500;       // ms between two refreshes of the lines
constexpr int kBadSectorAfter = 5;  // s
constexpr int kSectorsInSecond = 75;
constexpr QSize kLine(167, 20);

/// A main window that always shows the CD player.
class CdFunction : public DisplayFunctions {
public:
    void ChangeFunction(qint32 /*number*/) override {}
    qint32 GetFuncNumber() const override { return kFunctionCd; }
};

/// The player with its window and lines, connected as in the program.
struct Player {
    Player(const QString& helper, const QString& source)
        : output(realTimers, QFileInfo(helper).dir().filePath(u"tickwell-sound"_s)),
          drive(realTimers, output, helper, source) {
        auto* const layout = new QVBoxLayout(&window);
        for (lines::MovingWord* line : {&upper, &lower}) {
            line->setFixedSize(kLine);
            line->setFont(lines::FontOf({u"ＭＳ Ｐゴシック"_s, 10}));
            layout->addWidget(line);
        }
        media.OpenAtStart();
        window.show();
        form.show();
        lines.Show();
        refresh->Start();
        while (drive.IsLooking()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }

    platform::SystemClock clock;
    platform::QtTimers timers;
    RealTimerSource realTimers{timers};
    platform::HelperSoundOutput output;
    platform::CdHelperDrive drive;
    platform::QtEventWait wait;
    FakeMessageBoxes boxes;
    Handlers handlers{boxes};
    bool tellsNoCdDrive = false;
    media::MediaSystem media{{.devices = {.drive = drive,
                                          .playback = drive,
                                          .sound = output,
                                          .timers = realTimers,
                                          .wait = wait,
                                          .folder = {}},
                              .boxes = boxes,
                              .handlers = handlers,
                              .timers = timers,
                              .tellsNoCdDrive = tellsNoCdDrive}};
    lines::FramePacer pacer{clock, timers};
    QWidget window;
    lines::MovingWord upper{{.clock = clock, .timers = timers, .pacer = pacer}, &window};
    lines::MovingWord lower{{.clock = clock, .timers = timers, .pacer = pacer}, &window};
    CdFunction function;
    media::CdLines lines{media.Player(), {.upper = upper, .lower = lower}, function};
    media::CDForm form{media.Player(), handlers, nullptr};
    std::unique_ptr<Timer> refresh = timers.Create(kRefresh, [this] { lines.Tick(); });
};

double ProcessorTime(int who) {
    rusage usage{};
    getrusage(who, &usage);
    const auto milliseconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) * 1000 + static_cast<double>(time.tv_usec) / 1000;
    };
    return milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
}

/// Runs the event loop for `milliseconds` without any measuring timer; returns the CPU time of this process
/// in ms per minute.
double RestFor(int milliseconds) {
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, [] { QCoreApplication::quit(); });
    const double before = ProcessorTime(RUSAGE_SELF);
    QCoreApplication::exec();
    return (ProcessorTime(RUSAGE_SELF) - before) * 60'000 / milliseconds;
}

/// Runs the event loop in the same way with a pulse timer; returns the largest delay of a pulse in ms.
double WatchFor(int milliseconds) {
    QElapsedTimer clock;
    double worst = 0;
    QTimer pulse;
    pulse.setTimerType(Qt::PreciseTimer);
    QObject::connect(&pulse, &QTimer::timeout, &pulse, [&] {
        worst = std::max(worst, static_cast<double>(clock.nsecsElapsed()) / 1e6 - kPulse);
        clock.restart();
    });
    clock.start();
    pulse.start(kPulse);
    RestFor(milliseconds);
    return worst;
}

/// The duration of a call in ms.
template <typename Call>
double TimeOf(Call call) {
    QElapsedTimer clock;
    clock.start();
    call();
    return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

struct Costs {
    double own = 0;  // CPU time, ms per minute
    int devices = 0;
    double worst = 0;  // ms
};

/// Presses a button and measures the cost afterwards. The button may have no effect.
Costs Measure(Player& player, int button, int seconds) {
    Costs costs;
    costs.worst = TimeOf([&] { player.media.Player().Command1_Click(button); });
    costs.worst = std::max(costs.worst, WatchFor(kUntilClosed));  // a device is being opened or closed
    costs.devices = player.output.OpenDevices();
    costs.worst = std::max(costs.worst, WatchFor(seconds * 1000));
    costs.own = RestFor(seconds * 1000);
    return costs;
}

void Print(const QString& name, const Costs& costs, double helpers) {
    std::printf("%-42s %8.1f ms CPU a minute   helper %6.1f   open devices %d   worst gap %6.1f ms\n",
                qPrintable(name), costs.own, helpers, costs.devices, costs.worst);
    std::fflush(stdout);
}

void MeasureDisc(const QString& name, const QString& source, const QString& helper, int seconds) {
    Player player(helper, source);
    Print(name + u", before it plays", Measure(player, media::kCdStop, seconds), 0);
    const double before = ProcessorTime(RUSAGE_CHILDREN);
    const Costs playing = Measure(player, media::kCdPlay, seconds);
    const Costs stopped = Measure(player, media::kCdStop, seconds);
    const double helpers = ProcessorTime(RUSAGE_CHILDREN) - before;  // includes only helpers that have ended
    Print(name + u", playing", playing, helpers * 60'000 / (kUntilClosed + 2 * seconds * 1000));
    Print(name + u", stopped again", stopped, 0);
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    lines::InstallFontSubstitutes();
    const QStringList words = QCoreApplication::arguments();
    if (words.size() < 3) {
        std::fputs("usage: disc_playing HELPER FAKE_DRIVE [SECONDS]\n", stderr);
        return 1;
    }
    const int seconds = std::max(1, words.value(3, u"20"_s).toInt());
    const QTemporaryDir folder;
    const TestDisc disc = MakeDisc({{440, (2 * seconds + 10) * kSectorsInSecond}});
    MeasureDisc(u"an image"_s, WriteCueImage(disc, folder.path(), u"tone"_s), words[1], seconds);
    QFile::link(u"/dev/zero"_s, folder.filePath(u"drive"_s));
    WriteAll(folder.filePath(u"disc"_s),
             folder.filePath(u"tone.bin"_s).toUtf8() + " a0 L" + QByteArray::number(disc.end));
    qputenv("FAKE_DRIVE_NODE", folder.filePath(u"drive"_s).toUtf8());
    qputenv("FAKE_DRIVE_DISC", folder.filePath(u"disc"_s).toUtf8());
    qputenv("FAKE_DRIVE_DELAY", "100");
    qputenv("FAKE_DRIVE_BAD", QByteArray::number(kBadSectorAfter * kSectorsInSecond));
    qputenv("LD_PRELOAD", words[2].toUtf8());
    MeasureDisc(u"a slow drive, a bad sector"_s, folder.filePath(u"drive"_s), words[1], seconds);
    return 0;
}
