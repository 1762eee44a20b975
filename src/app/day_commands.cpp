// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/day_commands.h"

#include <unistd.h>

#include <QFileInfo>
#include <csignal>

#include "app/chosen_holidays.h"
#include "app/command_end.h"
#include "app/folder_setup.h"
#include "core/errors.h"
#include "core/one_line.h"
#include "core/settings_io.h"
#include "days/announced_names.h"
#include "platform/files/ini_file_store.h"
#include "platform/time/system_clock.h"
#include "store/day_recovery.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;

namespace {

store::DayDatabase OpenDays(const ProgramFolder& folder) {
    if (!QFileInfo(folder.Path()).isDir()) {
        throw RunTimeError(folder.Path() + u"\r\nフォルダーがありません。");
    }
    try {
        return store::DayDatabase::OpenToRead(folder.PathOf(store::kLiveFile));
    } catch (const RunTimeError& error) {
        throw RunTimeError(store::WithNamedCopies(folder, error.Reason()));
    }
}

FurtherSettings ReadSettings(const QString& path) {
    FurtherSettings settings;
    const platform::IniFileStore store(path, platform::Leftovers::Keep);
    try {
        LoadFurtherSettings(store, settings);
    } catch (const RunTimeError& error) {  // names the key
        throw RunTimeError(path + u"\r\n" + error.Reason());
    }
    return settings;
}

/// Closes the database before the first line is printed: a pager may block the output for hours.
days::AnniversaryIndex ReadIndex(const ProgramFolder& folder, const days::DayRange& days) {
    store::DayDatabase database = OpenDays(folder);
    return days::AnniversaryIndex(days::ReadAnniversaries(database, days.first.year(), days.last.year()));
}

QStringList NamesOf(const DaySources& sources, QDate today) {
    const ProgramFolder folder(sources.folder);
    const FurtherSettings settings = ReadSettings(sources.settings);
    store::DayDatabase database = OpenDays(folder);
    const ChosenHolidays holidays(folder, database, settings.calendar);
    return days::AnnouncedNames({.dayDatabase = database, .holidays = holidays, .further = settings}, today);
}

DaySources SourcesOf(const Options& options) {
    // QCoreApplication::applicationDirPath needs an application object, and there is none here.
    const QString executableFolder = QFileInfo(QFileInfo(u"/proc/self/exe"_s).canonicalFilePath()).path();
    return {.folder = ChooseFolder(ChoicesOfProcess(options.folder, executableFolder)),
            .settings = platform::IniFileStore::UserPath()};
}

QDate Today(const Options& options) {
    return options.virtualTime ? options.virtualTime->wall.date() : platform::SystemClock().Now().date();
}

}  // namespace

void PrintToday(const DaySources& sources, QDate today, LineOutput& output) {
    for (const QString& name : NamesOf(sources, today)) {
        output.Add(OnOneLine(name));
    }
    output.Flush();
}

void PrintDays(const DaySources& sources, const days::DayRange& days, LineOutput& output) {
    const ProgramFolder folder(sources.folder);
    const days::HolidayListFile list(folder);
    days::DayLines lines(ReadIndex(folder, days), list.List());
    for (QDate day = days.first; day <= days.last && output.Add(lines.LineOf(day)); day = day.addDays(1)) {
    }
    output.Flush();
}

int RunDayCommand(const Options& options) {
    if (!options.error.isEmpty()) {
        return FailCommand(kWrongOptions, options.error);
    }
    std::signal(SIGPIPE, SIG_IGN);  // a reader that closes the pipe early, such as head, is not an error
    try {
        LineOutput output(STDOUT_FILENO);
        if (options.printsDays) {
            PrintDays(SourcesOf(options), *options.printsDays, output);
        } else {
            PrintToday(SourcesOf(options), Today(options), output);
        }
        return kCommandDone;
    } catch (const RunTimeError& error) {
        return FailCommand(kCommandFailed, error.Reason());
    }
}

}  // namespace tickwell::app
