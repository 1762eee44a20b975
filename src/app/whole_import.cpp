// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/whole_import.h"

#include <QDir>
#include <QFileInfo>

#include "app/checked_bytes.h"
#include "app/log.h"
#include "app/whole_export.h"
#include "core/regular_file.h"
#include "days/holiday_list_file.h"
#include "platform/files/file_replacement.h"
#include "store/alarm_rows.h"
#include "store/backup.h"
#include "store/day_database_check.h"
#include "store/day_files.h"
#include "store/day_recovery.h"
#include "store/kept_file.h"
#include "store/tools_database.h"
#include "store/tools_schema.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kUnfinishedFolder = ".Import.unfinished"_L1;
constexpr auto kReadyFolder = ".Import.ready"_L1;
constexpr unsigned kStagedMode = 0600;

QString HolidayName() {
    return days::HolidayListFile::kName.toString();
}

void RemoveFolder(const QString& path) {
    if (!QDir(path).removeRecursively()) {
        throw FileError(u"フォルダーを取り除けません。"_s, path,
                        u"書き込む権限があるかどうか、確かめてください。"_s);
    }
}

/// As the program opens the file.
void CheckToolsFile(store::SqliteConnection& connection) {
    store::CheckTools(connection);
    store::ReadTools(connection);
}

/// A copy of an earlier version is brought to the form of this one, as opening it would.
void CheckStagedTools(const QString& path) {
    store::SqliteConnection tools(path);
    store::CheckTools(tools);
    store::RaiseToolsVersion(tools);
    store::ReadTools(tools);
    store::ReadAlarms(tools);
}

/// Runs `job`; an error names the file of the export.
template <typename Job>
void OfFile(const QString& path, Job job) {
    try {
        job();
    } catch (const store::DiskError&) {
        throw;
    } catch (const RunTimeError& error) {
        throw RunTimeError(path + u"\r\n" + error.Reason());
    }
}

void CopyFiles(const QString& source, const QString& to, store::StoreDisk& disk) {
    const auto from = [&](const QString& name) -> QString { return source + u'/' + name; };
    const auto copy = [&](const QString& name) -> QString { return to + u'/' + name; };
    disk.Create(copy(kSettingsFile), kStagedMode, SettingsBytes(from(kSettingsFile)));
    SettingsBytes(copy(kSettingsFile));
    OfFile(from(store::kLiveFile), [&] {
        store::SqliteConnection days(from(store::kLiveFile), store::FileUse::LookOver);
        store::CheckDayDatabase(days);
        store::WriteCheckedCopy(days, copy(store::kLiveFile), store::CheckDayDatabase, disk);
    });
    if (EntryExists(from(store::kToolsFile))) {
        OfFile(from(store::kToolsFile), [&] {
            store::SqliteConnection tools(from(store::kToolsFile), store::FileUse::LookOver);
            store::CheckTools(tools);
            store::WriteCheckedCopy(tools, copy(store::kToolsFile), CheckToolsFile, disk);
            CheckStagedTools(copy(store::kToolsFile));
        });
    }
    if (EntryExists(from(HolidayName()))) {
        disk.Create(copy(HolidayName()), kStagedMode, HolidayBytes(from(HolidayName())));
    }
}

/// Keeps the present file and puts the staged one in its place.
void Take(const QString& staged, const QString& path, store::StoreDisk& disk) {
    if (!EntryExists(staged)) {
        return;
    }
    if (EntryExists(path)) {
        store::KeepFile(path, disk);
    }
    store::RenameSafely(disk, staged, path);
}

/// Opening the present file once lets SQLite finish what a killed program began: its journal must not meet
/// the new file.
void TakeTools(const ProgramFolder& folder, store::StoreDisk& disk) {
    const QString staged = StagedImport(folder) + u'/' + store::kToolsFile;
    const QString path = folder.PathOf(store::kToolsFile);
    if (!EntryExists(staged)) {
        return;
    }
    if (EntryExists(path)) {
        try {
            store::SqliteConnection present(path);
            present.TakeExclusive();
        } catch (const RunTimeError& error) {
            qCWarning(AppLog).noquote() << "the timers that are replaced cannot be read:" << error.Detail();
        }
    }
    store::RemoveJournals(disk, path);
    Take(staged, path, disk);
}

void TakeSettings(const ProgramFolder& folder, const QString& settings, store::StoreDisk& disk) {
    const QString staged = StagedImport(folder) + u'/' + kSettingsFile;
    if (!EntryExists(staged)) {
        return;
    }
    const QByteArray bytes = SettingsBytes(staged);
    if (EntryExists(settings)) {
        store::KeepFile(settings, disk);
    } else if (!QDir().mkpath(QFileInfo(settings).path())) {
        throw FileError(u"設定ファイルを書き込めません。"_s, settings, u"フォルダーを作成できません。"_s);
    }
    if (const QString reason = platform::ReplaceFile(settings, bytes); !reason.isEmpty()) {
        throw FileError(u"設定ファイルを書き込めません。"_s, settings, reason);
    }
    disk.Remove(staged);
}

/// If it stayed, the next start would take it again, in place of a database that was changed since.
void RemoveTaken(const QString& staged, store::StoreDisk& disk) {
    try {
        disk.Remove(staged);
    } catch (const RunTimeError&) {
        if (EntryExists(staged) && !QFile::remove(staged)) {
            throw;
        }
    }
}

void TakeDays(const ProgramFolder& folder, store::StoreDisk& disk) {
    const QString staged = StagedImport(folder) + u'/' + store::kLiveFile;
    if (EntryExists(staged)) {
        store::ReplaceDayFile(folder, staged, disk);
        RemoveTaken(staged, disk);
    }
}

Message ImportMessage(MessageIcon icon, const QString& text) {
    return {icon, u"書き出したものを読み込む"_s, text};
}

}  // namespace

QString StagedImport(const ProgramFolder& folder) {
    return folder.PathOf(kReadyFolder);
}

void StageImport(const ProgramFolder& folder, const QString& source, store::StoreDisk& disk) {
    const QString unfinished = folder.PathOf(kUnfinishedFolder);
    RemoveFolder(unfinished);
    if (!QDir().mkdir(unfinished)) {
        throw FileError(u"フォルダーを作れません。"_s, unfinished,
                        u"書き込む権限があるかどうか、確かめてください。"_s);
    }
    try {
        CopyFiles(source, unfinished, disk);
        disk.Sync(unfinished);
    } catch (const RunTimeError&) {
        QDir(unfinished).removeRecursively();  // otherwise the next import removes it
        throw;
    }
    try {
        DropImport(folder);  // settings of an earlier one that the next start would have taken
        store::RenameSafely(disk, unfinished, StagedImport(folder));
    } catch (const RunTimeError&) {
        for (const QString& path : {StagedImport(folder), unfinished}) {
            QDir(path).removeRecursively();
        }
        throw;
    }
}

void DropImport(const ProgramFolder& folder) {
    RemoveFolder(StagedImport(folder));
}

store::CompactionEnd ApplyImport(const ProgramFolder& folder, store::StoreDisk& disk) {
    store::CompactionEnd end;
    try {
        TakeDays(folder, disk);
        end.report = ImportMessage(
            MessageIcon::Information,
            u"書き出したものを読み込みました。設定は、次に起動したときに変わります。\r\n今までのファイルは、名前に before-restore を付けて残してあります。"_s);
        try {
            TakeTools(folder, disk);
            Take(StagedImport(folder) + u'/' + HolidayName(), folder.PathOf(HolidayName()), disk);
        } catch (const RunTimeError& error) {
            end.report = ImportMessage(
                MessageIcon::Exclamation,
                u"データベースを読み込みました。残りは、次に起動したときに読み込みます。\r\n\r\n"_s +
                    folder.Shortened(error.Reason()));
        }
    } catch (const RunTimeError& error) {
        QDir(StagedImport(folder)).removeRecursively();
        end.report = ImportMessage(
            MessageIcon::Exclamation,
            u"読み込めませんでした。何も変わっていません。\r\n\r\n"_s + folder.Shortened(error.Reason()));
    }
    store::ReopenDayFile(folder, end);
    return end;
}

void FinishImport(const ProgramFolder& folder, const QString& settings, store::StoreDisk& disk) {
    if (!EntryExists(StagedImport(folder))) {
        return;
    }
    TakeDays(folder, disk);
    TakeTools(folder, disk);
    Take(StagedImport(folder) + u'/' + HolidayName(), folder.PathOf(HolidayName()), disk);
    TakeSettings(folder, settings, disk);
    DropImport(folder);
}

}  // namespace tickwell::app
