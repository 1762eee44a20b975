// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/whole_export.h"

#include <QTemporaryDir>

#include "app/checked_bytes.h"
#include "core/regular_file.h"
#include "days/holiday_list_file.h"
#include "platform/files/unfinished_files.h"
#include "store/backup.h"
#include "store/day_database_check.h"
#include "store/day_files.h"
#include "store/tools_database.h"
#include "store/tools_schema.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;

namespace {

constexpr unsigned kExportedMode = 0600;

QString FreeFolder(const QString& target, QDate day) {
    const QString start = target + u"/Tickwell-"_s + day.toString(Qt::ISODate);
    QString path = start;
    for (int number = 2; EntryExists(path); ++number) {
        path = start + u'.' + QString::number(number);
    }
    return path;
}

/// An error of a database that does not name it yet.
template <typename Job>
void Naming(const QString& path, Job job) {
    try {
        job();
    } catch (const store::DiskError&) {
        throw;
    } catch (const RunTimeError& error) {
        throw RunTimeError(path + u"\r\n" + error.Reason());
    }
}

void ExportTools(const ProgramFolder& folder, const QString& to, store::StoreDisk& disk) {
    const QString path = folder.PathOf(store::kToolsFile);
    if (!EntryExists(path)) {
        return;
    }
    Naming(path, [&] {
        store::SqliteConnection tools(path, store::FileUse::LookOver);
        if (tools.FileSize() > 0) {  // a start that was killed leaves an empty file
            store::CheckTools(tools);
            store::WriteCheckedCopy(tools, to, store::CheckTools, disk);
        }
    });
}

void ExportDays(const ProgramFolder& folder, const QString& to, store::StoreDisk& disk) {
    const QString path = folder.PathOf(store::kLiveFile);
    Naming(path, [&] {
        store::SqliteConnection days(path, store::FileUse::LookOver);
        store::CheckDayDatabase(days);
        store::WriteCheckedCopy(days, to, store::CheckDayDatabase, disk);
    });
}

}  // namespace

QStringList ExportedFiles() {
    return {kSettingsFile, store::kLiveFile, store::kToolsFile, days::HolidayListFile::kName.toString()};
}

QString ExportEverything(const ProgramFolder& folder, const QString& settings, const QString& target,
                         QDate day, store::StoreDisk& disk) {
    QString path = FreeFolder(target, day);
    platform::RemoveUnfinished(path, ExportedFiles());
    const platform::UnfinishedFilesInUse inUse(target);
    QTemporaryDir unfinished(platform::UnfinishedTemplate(path));
    if (!unfinished.isValid()) {
        throw FileError(u"フォルダーを作れません。"_s, path, unfinished.errorString());
    }
    ExportDays(folder, unfinished.filePath(store::kLiveFile), disk);
    ExportTools(folder, unfinished.filePath(store::kToolsFile), disk);
    disk.Create(unfinished.filePath(kSettingsFile), kExportedMode, SettingsBytes(settings));
    const QString list = folder.PathOf(days::HolidayListFile::kName.toString());
    if (EntryExists(list)) {
        disk.Create(unfinished.filePath(days::HolidayListFile::kName.toString()), kExportedMode,
                    HolidayBytes(list));
    }
    disk.Sync(unfinished.path());
    disk.Rename(unfinished.path(), path);
    unfinished.setAutoRemove(false);
    disk.Sync(target);
    return path;
}

}  // namespace tickwell::app
