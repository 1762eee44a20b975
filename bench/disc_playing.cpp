// SPDX-License-Identifier: GPL-3.0-or-later
// disc_playing HELPER FAKE_DRIVE [SECONDS]: what an audio CD costs. Rests, plays an image, and plays a drive
// that takes 100 ms a reading and has one sector that cannot be read, each for so many seconds (20 where not
// given). Prints for each: processor time a minute of this process and of its helper, open devices, and the
// worst gap of the event loop, that is how long a click could have had to wait. Nothing fails by the clock.
// Sound goes where SDL_AUDIODRIVER says.

#include <sys/resource.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <cstdio>

#include "discs/test_disc.h"
#include "platform/cd_helper_drive.h"
#include "platform/qt_timers.h"
#include "platform/sdl_sound_output.h"
#include "support/files.h"

namespace {

using namespace tickwell;
using namespace Qt::StringLiterals;

constexpr int kPulse = 5;           // ms between two looks at the event loop
constexpr int kUntilClosed = 1000;  // ms in which a stopped disc lets go of its device
constexpr int kBadSectorAfter = 5;  // s
constexpr int kSectorsInSecond = 75;

double ProcessorTime(int who) {
    rusage usage{};
    getrusage(who, &usage);
    const auto milliseconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) * 1000 + static_cast<double>(time.tv_usec) / 1000;
    };
    return milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
}

/// Runs the event loop for so long, with nothing of ours in it; the processor time of this process, ms a
/// minute.
double RestFor(int milliseconds) {
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, [] { QCoreApplication::quit(); });
    const double before = ProcessorTime(RUSAGE_SELF);
    QCoreApplication::exec();
    return (ProcessorTime(RUSAGE_SELF) - before) * 60'000 / milliseconds;
}

/// The same with a pulse; the worst gap between two of its beats beyond their interval, in ms.
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

/// How long a call takes, ms.
template <typename Call>
double TimeOf(Call call) {
    QElapsedTimer clock;
    clock.start();
    call();
    return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

void WaitForDisc(CdHelperDrive& drive) {
    drive.Look();
    while (drive.IsLooking()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

/// Plays from the start where there is a disc, and rests where there is none.
void Measure(const char* name, const QString& source, const QString& helper, int seconds) {
    QtTimers timers;
    SdlSoundOutput output;
    const double before = ProcessorTime(RUSAGE_CHILDREN);
    double own = 0;
    double worst = 0;
    int devices = 0;
    {
        CdHelperDrive drive(timers, output, helper, source);
        if (!source.isEmpty()) {
            WaitForDisc(drive);
            worst = TimeOf([&] { drive.Play(0, drive.Picture().contents.leadOut); });
        }
        worst = std::max(worst, WatchFor(seconds * 1000));
        own = RestFor(seconds * 1000);
        devices = output.OpenDevices();
        worst = std::max(worst, TimeOf([&] { drive.Stop(); }));
        worst = std::max(worst, WatchFor(kUntilClosed));
    }
    const double helpers = (ProcessorTime(RUSAGE_CHILDREN) - before) * 30 / seconds;
    std::printf("%-32s %8.1f ms CPU a minute   helper %6.1f   open devices %d   worst gap %6.1f ms\n", name,
                own, helpers, devices, worst);
    std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    if (words.size() < 3) {
        std::fputs("usage: disc_playing HELPER FAKE_DRIVE [SECONDS]\n", stderr);
        return 1;
    }
    const int seconds = std::max(1, words.value(3, u"20"_s).toInt());
    const QTemporaryDir folder;
    const TestDisc disc = MakeDisc({{440, (2 * seconds + 10) * kSectorsInSecond}});
    const QString image = WriteCueImage(disc, folder.path(), u"tone"_s);
    Measure("at rest", QString(), words[1], seconds);
    Measure("an image", image, words[1], seconds);
    QFile::link(u"/dev/zero"_s, folder.filePath(u"drive"_s));
    WriteAll(folder.filePath(u"disc"_s),
             folder.filePath(u"tone.bin"_s).toUtf8() + " a0 L" + QByteArray::number(disc.end));
    qputenv("FAKE_DRIVE_NODE", folder.filePath(u"drive"_s).toUtf8());
    qputenv("FAKE_DRIVE_DISC", folder.filePath(u"disc"_s).toUtf8());
    qputenv("FAKE_DRIVE_DELAY", "100");
    qputenv("FAKE_DRIVE_BAD", QByteArray::number(kBadSectorAfter * kSectorsInSecond));
    qputenv("LD_PRELOAD", words[2].toUtf8());
    Measure("a slow drive with a bad sector", folder.filePath(u"drive"_s), words[1], seconds);
    return 0;
}
