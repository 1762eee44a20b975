// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/compaction_disk.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <limits>
#include <utility>

#include "core/errors.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPiece = 1 << 16;  // bytes copied at once
constexpr mode_t kPermissions = 0777;

QByteArray Native(const QString& path) {
    return QFile::encodeName(path);
}

[[noreturn]] void Fail(const QString& path, int error) {
    const QString reason =
        error == ENOSPC || error == EDQUOT ? u"ディスクの空き容量が足りません。"_s : qt_error_string(error);
    throw RunTimeError(path + u"\r\n" + reason);
}

mode_t ModeOf(const SqliteConnection& file) {
    struct stat state {};
    if (stat(file.NativeName().constData(), &state) != 0) {
        Fail(QFile::decodeName(file.NativeName()), errno);
    }
    return state.st_mode & kPermissions;
}

/// A new file that nobody else may read until it is finished. It is removed if it is not finished.
class NewFile {
public:
    explicit NewFile(const QString& path)
        : m_path(path),
          m_file(open(Native(path).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR)) {
        if (m_file < 0) {
            Fail(path, errno);
        }
    }
    ~NewFile() {
        if (m_file >= 0) {
            close(m_file);
        }
        if (!m_isFinished) {
            unlink(Native(m_path).constData());  // an error is already being reported
        }
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    void Write(const QByteArray& bytes) {
        for (qsizetype at = 0; at < bytes.size();) {
            const ssize_t written =
                write(m_file, bytes.constData() + at, static_cast<size_t>(bytes.size() - at));
            if (written < 0 && errno == EINTR) {
                continue;
            }
            Check(written < 0 ? -1 : 0);
            at += written;
        }
    }

    void Finish(mode_t mode) {
        Check(fchmod(m_file, mode));
        Check(fsync(m_file));
        const int file = std::exchange(m_file, -1);
        Check(close(file));
        m_isFinished = true;
    }

private:
    void Check(int result) const {
        if (result != 0) {
            Fail(m_path, errno);
        }
    }

    QString m_path;
    int m_file;
    bool m_isFinished = false;
};

void SyncFolderOf(const QString& path) {
    const QString folder = QFileInfo(path).path();
    const int file = open(Native(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (file < 0) {
        Fail(folder, errno);
    }
    const int error = fsync(file) == 0 ? 0 : errno;
    close(file);  // nothing was written through this descriptor
    if (error != 0) {
        Fail(folder, error);
    }
}

}  // namespace

qint32 PosixCompactionDisk::Size(const QString& path) {
    struct stat state {};
    if (stat(Native(path).constData(), &state) != 0) {
        Fail(path, errno);
    }
    if (state.st_size > std::numeric_limits<qint32>::max()) {
        throw OverflowError();
    }
    return static_cast<qint32>(state.st_size);
}

void PosixCompactionDisk::Copy(const SqliteConnection& from, const QString& to) {
    NewFile copy(to);
    const qint64 size = from.FileSize();
    for (qint64 at = 0; at < size; at += kPiece) {
        FailIfStopped(to);
        copy.Write(from.Bytes(at, static_cast<int>(std::min<qint64>(kPiece, size - at))));
    }
    copy.Finish(ModeOf(from));
    SyncFolderOf(to);
}

void PosixCompactionDisk::Compact(SqliteConnection& from, const QString& to) {
    FailIfStopped(to);
    NewFile(to).Finish(ModeOf(from));  // SQLite accepts an empty target file
    SqliteStatement& vacuum = from.Prepared("VACUUM INTO ?1");
    const auto atRest = qScopeGuard([&vacuum] { vacuum.Reset(); });
    vacuum.Bind(1, to);
    from.StopWith(m_stop);
    vacuum.Step();
}

void PosixCompactionDisk::FailIfStopped(const QString& path) const {
    if (m_stop.stop_requested()) {
        Fail(path, ECANCELED);
    }
}

void PosixCompactionDisk::Rename(const QString& from, const QString& to) {
    SyncFolderOf(to);  // so that a removed journal of either file cannot reappear
    if (rename(Native(from).constData(), Native(to).constData()) != 0) {
        Fail(to, errno);
    }
    SyncFolderOf(to);
}

void PosixCompactionDisk::Remove(const QString& path) {
    if (unlink(Native(path).constData()) != 0 && errno != ENOENT) {
        Fail(path, errno);
    }
}

}  // namespace tickwell
