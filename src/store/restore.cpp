// SPDX-License-Identifier: GPL-3.0-or-later
#include <memory>

#include "core/regular_file.h"
#include "store/backup.h"
#include "store/day_database_check.h"
#include "store/day_recovery.h"
#include "store/kept_file.h"
#include "store/log.h"
#include "store/shared_file_lock.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

/// The live file under the exclusive lock. A damaged file cannot be locked through SQLite; the lock file
/// alone then keeps out other instances.
class LockedLiveFile {
public:
    explicit LockedLiveFile(const QString& path) {
        try {
            m_connection = std::make_unique<SqliteConnection>(path);
            CheckDayDatabase(*m_connection);
        } catch (const RunTimeError& error) {
            qCWarning(StoreLog).noquote() << "a damaged file is replaced:" << error.Detail();
            m_connection.reset();
            m_lock = std::make_unique<SharedFileLock>(path);
            m_lock->TakeExclusive();
            return;
        }
        m_connection->TakeExclusive();
    }

    /// Null if the file is damaged.
    const SqliteConnection* Sound() const { return m_connection.get(); }

private:
    std::unique_ptr<SharedFileLock> m_lock;
    std::unique_ptr<SqliteConnection> m_connection;
};

/// Writes and checks the new file beside the live one, under the name of a compacted file: if the program is
/// killed, the next start removes it.
void Stage(const QString& source, const DayFiles& files, StoreDisk& disk) {
    SqliteConnection checked(source, FileUse::LookOver);
    CheckDayDatabase(checked);
    RemoveWithJournals(disk, files.target);
    WriteCheckedCopy(checked, files.target, CheckDayDatabase, disk);
}

/// A second name for the live file: renaming it would leave a moment without one. Some file systems have no
/// hard links; there it is copied.
void KeepPresent(const LockedLiveFile& present, const QString& live, const QString& kept, StoreDisk& disk) {
    try {
        disk.Link(live, kept);
    } catch (const DiskError& error) {
        if (!MeansNoLinks(error) || present.Sound() == nullptr) {
            throw;
        }
        disk.Copy(*present.Sound(), kept);
    }
}

/// After a failure the live file may have been replaced. If it cannot be put back, `kept` stays, and the
/// error names it.
[[noreturn]] void Undo(const RunTimeError& cause, const QString& live, const QString& kept, StoreDisk& disk) {
    try {
        if (EntryExists(kept)) {
            disk.Rename(kept, live);  // does nothing if both are still the same file
        }
    } catch (const RunTimeError& error) {
        qCWarning(StoreLog).noquote() << "the present file was not put back:" << error.Detail();
        throw RunTimeError(cause.Reason() + u"\r\n元のデータベース：" + kept);
    }
    RemoveAfterFailure(disk, kept);
    throw RunTimeError(cause.Reason());
}

void Swap(const LockedLiveFile& present, const DayFiles& files, const QString& kept, StoreDisk& disk) {
    try {
        KeepPresent(present, files.live, kept, disk);
        RemoveJournals(disk, files.live);
        RenameSafely(disk, files.target, files.live);
    } catch (const RunTimeError& error) {
        Undo(error, files.live, kept, disk);
    }
}

Message RestoreMessage(MessageIcon icon, const QString& text) {
    return {icon, u"控えに戻す"_s, text};
}

}  // namespace

QString ReplaceDayFile(const ProgramFolder& folder, const QString& source, StoreDisk& disk) {
    const DayFiles files = FindDayFiles(folder);
    const LockedLiveFile present(files.live);
    try {
        Stage(source, files, disk);
        QString kept = FreeKeptName(files.live);
        Swap(present, files, kept, disk);
        return kept;
    } catch (const RunTimeError&) {
        RemoveAfterFailure(disk, files.target);
        throw;
    }
}

CompactionEnd RestoreBackup(const ProgramFolder& folder, QDate day, StoreDisk& disk) {
    CompactionEnd end;
    const QString name = day.toString(u"yyyy年M月d日"_s);
    try {
        const QString kept = ReplaceDayFile(folder, BackupPath(folder, day), disk);
        end.report = RestoreMessage(
            MessageIcon::Information,
            u"%1の控えに戻しました。\r\n戻す前のデータベースは、次のファイルに残してあります。\r\n%2"_s.arg(
                name, folder.Shortened(kept)));
    } catch (const RunTimeError& error) {
        qCWarning(StoreLog).noquote() << "no backup was restored:" << error.Detail();
        end.report = RestoreMessage(MessageIcon::Exclamation, u"%1の控えに戻せませんでした。\r\n\r\n%2"_s.arg(
                                                                  name, folder.Shortened(error.Reason())));
    }
    ReopenDayFile(folder, end);
    return end;
}

}  // namespace tickwell::store
