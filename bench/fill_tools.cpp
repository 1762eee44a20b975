// SPDX-License-Identifier: GPL-3.0-or-later
// fill_tools FOLDER: fills Tools.db of a program folder with as many running timers and alarms as it can
// hold. None of them is due within the next hours.

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <cstdio>

#include "core/errors.h"
#include "store/tools_database.h"

namespace {

using namespace tickwell;
using namespace Qt::StringLiterals;

constexpr qint32 kMinute = 60'000;      // ms
constexpr qint32 kHour = 60 * kMinute;  // ms

QList<KeptTimer> RunningTimers(qint64 now) {
    QList<KeptTimer> timers;
    for (int number = 1; number <= kMostTimers; ++number) {
        const qint32 length = 5 * kHour + number * kMinute;
        timers.append(
            {.plan = {.name = u"タイマー%1"_s.arg(number), .milliseconds = length, .sound = u"TKW00.wav"_s},
             .phase = TimerPhase::Running,
             .endsAt = now + length});
    }
    return timers;
}

QList<KeptAlarm> Alarms(const QDateTime& now) {
    QList<KeptAlarm> alarms;
    const QTime first = now.addSecs(5 * kHour / 1000).time();
    for (int number = 1; number <= kMostAlarms; ++number) {
        alarms.append({.name = u"アラーム%1"_s.arg(number),
                       .time = QTime(first.hour(), number),
                       .silentOnDaysOff = true,
                       .sound = u"TKW00.wav"_s,
                       .ringSeconds = kShortestRing,
                       .snoozeMinutes = kLongestSnooze,
                       .handled = now.toMSecsSinceEpoch()});
    }
    return alarms;
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 2 || !QDir(arguments.at(1)).exists()) {
        std::fputs("usage: fill_tools FOLDER\n", stderr);
        return 2;
    }
    try {
        store::ToolsDatabase tools(ProgramFolder(arguments.at(1)), [](const QString&) {});
        const QDateTime now = QDateTime::currentDateTime();
        QList<KeptTimer> timers = RunningTimers(now.toMSecsSinceEpoch());
        tools.Save(timers);
        QList<KeptAlarm> alarms = Alarms(now);
        tools.SaveAlarms(alarms);
    } catch (const RunTimeError& error) {
        std::fprintf(stderr, "fill_tools: %s\n", qPrintable(error.Detail()));
        return 1;
    }
    return 0;
}
