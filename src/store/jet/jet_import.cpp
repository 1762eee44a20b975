// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/jet/jet_import.h"

#include <QFile>
#include <QFileInfo>
#include <cerrno>

#include "core/errors.h"
#include "store/day_files.h"
#include "store/jet/day_file_writer.h"
#include "store/jet/locked_file.h"
#include "store/log.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kFirstBytes = 32;
constexpr int kMostKeptFiles = 1000;

/// A file that the import created. Removes it on destruction unless Keep() was called.
class UnfinishedFile {
public:
    UnfinishedFile(StoreDisk& disk, QString path) : m_disk(&disk), m_path(std::move(path)) {}
    ~UnfinishedFile() {
        if (!m_keep) {
            Remove();
        }
    }
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;

    void Keep() { m_keep = true; }

private:
    /// Another error is already being reported to the user.
    void Remove() noexcept {
        try {
            m_disk->Remove(m_path);
        } catch (const DiskError& error) {
            qCWarning(StoreLog).noquote() << "an unfinished import is left over:" << error.Detail();
        }
    }

    StoreDisk* m_disk;
    QString m_path;
    bool m_keep = false;
};

bool HasContents(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.size() == bytes.size() && file.readAll() == bytes;
}

/// Keeps the original under a second name.
class KeptOriginal {
public:
    /// `bytes`: the contents of the original.
    KeptOriginal(StoreDisk& disk, const QString& path, unsigned mode, const QByteArray& bytes) {
        const QFileInfo info(path);
        for (int i = 1; i <= kMostKeptFiles; ++i) {
            const QString number = i == 1 ? QString() : u".%1"_s.arg(i);
            m_name = info.completeBaseName() + u".jet" + number + u".mdb";
            const QString kept = info.path() + u'/' + m_name;
            if (Keep(disk, path, kept, mode, bytes)) {
                m_file.emplace(disk, kept);
                return;
            }
            if (HasContents(kept, bytes)) {
                return;  // an earlier import got this far
            }
        }
        throw RunTimeError(u"元のファイルの控えを作成できません。"_s);
    }

    QString Name() const { return m_name; }

    void Keep() {
        if (m_file) {
            m_file->Keep();
        }
    }

private:
    /// False if a file `kept` exists.
    static bool Keep(StoreDisk& disk, const QString& path, const QString& kept, unsigned mode,
                     const QByteArray& bytes) {
        try {
            LinkOrCopy(disk, path, kept, mode, bytes);
            return true;
        } catch (const DiskError& error) {
            if (error.Code() != EEXIST) {
                throw;
            }
            return false;
        }
    }

    static void LinkOrCopy(StoreDisk& disk, const QString& path, const QString& kept, unsigned mode,
                           const QByteArray& bytes) {
        try {
            disk.Link(path, kept);
        } catch (const DiskError& error) {
            if (error.Code() == EEXIST) {
                throw;
            }
            disk.Create(kept, mode, bytes);  // not every file system supports hard links
        }
    }

    QString m_name;
    std::optional<UnfinishedFile> m_file;
};

/// The import is complete. If this fails before a power failure, the original reappears and is imported
/// again.
void SyncTheResult(StoreDisk& disk, const QString& folder) {
    try {
        disk.Sync(folder);
    } catch (const DiskError& error) {
        qCWarning(StoreLog).noquote() << "the import may have to be repeated:" << error.Detail();
    }
}

QString Replace(const QString& path, unsigned mode, const QByteArray& original, const DayRows& rows,
                StoreDisk& disk) {
    const QString folder = QFileInfo(path).path();
    const QString unfinished = path + u".import";
    // A file left by a power failure: the lock on the original guarantees that no other program is using it.
    disk.Remove(unfinished);
    disk.Create(unfinished, mode, QByteArray());
    UnfinishedFile newFile(disk, unfinished);
    WriteDayFile(unfinished, rows);
    disk.Sync(unfinished);
    KeptOriginal kept(disk, path, mode, original);
    disk.Sync(folder);
    disk.Rename(unfinished, path);
    newFile.Keep();
    kept.Keep();
    SyncTheResult(disk, folder);
    return kept.Name();
}

std::optional<JetImportSummary> Import(const QString& path, StoreDisk& disk) {
    const LockedFile file(path);
    if (!file.IsOpen()) {
        return std::nullopt;
    }
    switch (KindOfFile(file.Read(kFirstBytes))) {
        case JetFileKind::Other:
            return std::nullopt;
        case JetFileKind::Ace:
            throw RunTimeError(u"Access 2007以降の形式（ACE）のデータベースは読み込めません。"_s);
        case JetFileKind::Jet:
            break;
    }
    if (!file.Lock()) {
        throw RunTimeError(u"ほかのプログラムがデータベースを変換しています。"_s);
    }
    if (!file.IsAt(path)) {
        return std::nullopt;  // another instance was faster
    }
    constexpr unsigned kWritableByOwner = 0600;  // even if the original was read-only
    const QByteArray original = file.Read(JetPages::kMaximumSize + 1);
    const DayRows rows = ReadDayRows(JetFile(original));
    JetImportSummary summary;
    for (const DayTableRows& table : rows) {
        summary.rows.append(table.rows.size());
        summary.withoutDate += table.withoutDate;
        summary.unreadableNames += table.unreadableNames;
    }
    summary.keptAs = Replace(path, file.Mode() | kWritableByOwner, original, rows, disk);
    return summary;
}

}  // namespace

std::optional<JetImportSummary> ImportJetFile(const QString& path) {
    PosixStoreDisk disk;
    return ImportJetFile(path, disk);
}

std::optional<JetImportSummary> ImportJetFile(const QString& path, StoreDisk& disk) {
    const QString file = FollowLinks(path);
    try {
        auto summary = Import(file, disk);
        if (summary && file != path) {
            summary->keptAs.prepend(QFileInfo(file).path() + u'/');
        }
        return summary;
    } catch (const DiskError& error) {
        throw RunTimeError(path + u"\r\n" + qt_error_string(error.Code()));
    } catch (const RunTimeError& error) {
        throw RunTimeError(path + u"\r\n" + error.Reason());
    }
}

QString JetImportText(const JetImportSummary& summary) {
    QString text =
        u"以前の形式（Jet）のデータベースを読み込みました。\r\n"
        u"記念日 %1件、祝日 %2件、休日 %3件、半日 %4件、平日 %5件\r\n"_s;
    for (const qsizetype count : summary.rows) {
        text = text.arg(count);
    }
    if (summary.withoutDate > 0) {
        text += u"日付のない行 %1件は読み込みませんでした。\r\n"_s.arg(summary.withoutDate);
    }
    if (summary.unreadableNames > 0) {
        text += u"読めない文字のある名前 %1件では、その文字を「\uFFFD」に置き換えました。\r\n"_s.arg(
            summary.unreadableNames);
    }
    return text + u"元のファイルは %1 として残してあります。"_s.arg(summary.keptAs);
}

}  // namespace tickwell::store
