// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/store_disk.h"

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

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPiece = 1 << 16;  // bytes copied at once
constexpr mode_t kPermissions = 0777;

QByteArray Native(const QString& path) {
    return QFile::encodeName(path);
}

/// `result`: of a system call on `path`.
void Check(int result, const QString& path) {
    if (result != 0) {
        throw DiskError(path, errno);
    }
}

mode_t ModeOf(const SqliteConnection& file) {
    struct stat state {};
    Check(stat(file.NativeName().constData(), &state), QFile::decodeName(file.NativeName()));
    return state.st_mode & kPermissions;
}

/// A new file that no other user may read until it is finished. It is removed if it is not finished.
class NewFile {
public:
    explicit NewFile(const QString& path)
        : m_path(path),
          m_file(open(Native(path).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR)) {
        if (m_file < 0) {
            throw DiskError(path, errno);
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
            Check(written < 0 ? -1 : 0, m_path);
            at += written;
        }
    }

    void Finish(mode_t mode) {
        Check(fchmod(m_file, mode), m_path);
        Check(fsync(m_file), m_path);
        const int file = std::exchange(m_file, -1);
        Check(close(file), m_path);
        m_isFinished = true;
    }

private:
    QString m_path;
    int m_file;
    bool m_isFinished = false;
};

QString ReasonOf(int code) {
    return code == ENOSPC || code == EDQUOT ? u"ディスクの空き容量が足りません。"_s : qt_error_string(code);
}

QString FolderOf(const QString& path) {
    return QFileInfo(path).path();
}

}  // namespace

DiskError::DiskError(const QString& path, int code)
    : RunTimeError(path + u"\r\n" + ReasonOf(code)), m_code(code) {}

qint32 PosixStoreDisk::Size(const QString& path) {
    struct stat state {};
    Check(stat(Native(path).constData(), &state), path);
    if (state.st_size > std::numeric_limits<qint32>::max()) {
        throw OverflowError();
    }
    return static_cast<qint32>(state.st_size);
}

void PosixStoreDisk::Create(const QString& path, unsigned mode, const QByteArray& bytes) {
    NewFile file(path);
    file.Write(bytes);
    file.Finish(mode);
}

void PosixStoreDisk::Copy(const SqliteConnection& from, const QString& to) {
    NewFile copy(to);
    const qint64 size = from.FileSize();
    for (qint64 at = 0; at < size; at += kPiece) {
        FailIfStopped(to);
        copy.Write(from.Bytes(at, static_cast<int>(std::min<qint64>(kPiece, size - at))));
    }
    copy.Finish(ModeOf(from));
    PosixStoreDisk::Sync(FolderOf(to));
}

void PosixStoreDisk::Compact(SqliteConnection& from, const QString& to) {
    FailIfStopped(to);
    NewFile(to).Finish(ModeOf(from));  // SQLite accepts an empty target file
    SqliteStatement& vacuum = from.Prepared("VACUUM INTO ?1");
    const auto atRest = qScopeGuard([&vacuum] { vacuum.Reset(); });
    vacuum.Bind(1, to);
    from.StopWith(m_stop);
    vacuum.Step();
}

void PosixStoreDisk::FailIfStopped(const QString& path) const {
    if (m_stop.stop_requested()) {
        throw DiskError(path, ECANCELED);
    }
}

void PosixStoreDisk::Link(const QString& from, const QString& to) {
    Check(link(Native(from).constData(), Native(to).constData()), to);
}

void PosixStoreDisk::Rename(const QString& from, const QString& to) {
    Check(rename(Native(from).constData(), Native(to).constData()), to);
}

void PosixStoreDisk::Sync(const QString& path) {
    const int file = open(Native(path).constData(), O_RDONLY | O_CLOEXEC);
    if (file < 0) {
        throw DiskError(path, errno);
    }
    const int error = fsync(file) == 0 ? 0 : errno;
    close(file);  // errors do not matter: nothing was written
    if (error != 0) {
        throw DiskError(path, error);
    }
}

void PosixStoreDisk::Remove(const QString& path) {
    if (unlink(Native(path).constData()) != 0 && errno != ENOENT) {
        throw DiskError(path, errno);
    }
}

void RenameSafely(StoreDisk& disk, const QString& from, const QString& to) {
    disk.Sync(FolderOf(to));  // so that a removed journal of either file cannot reappear
    disk.Rename(from, to);
    disk.Sync(FolderOf(to));
}

}  // namespace tickwell::store
