// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/regular_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cerrno>
#include <optional>
#include <utility>

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

FileContents Failed(FileProblem problem, const QString& reason) {
    return {problem, QByteArray(), reason};
}

FileContents SystemError(int error) {
    return Failed(error == ENOENT ? FileProblem::Absent : FileProblem::Unreadable, qt_error_string(error));
}

FileContents TooLarge(qint64 most) {
    return Failed(FileProblem::TooLarge, u"ファイルが大きすぎます（%1 KiBまで）。"_s.arg(most / 1024));
}

/// Why a file with this state is not read; nullopt if it can be.
std::optional<FileContents> Objection(const struct stat& state, qint64 most) {
    if (!S_ISREG(state.st_mode)) {
        return Failed(FileProblem::NotRegular, u"通常のファイルではありません。"_s);
    }
    return state.st_size > most ? std::optional(TooLarge(most)) : std::nullopt;
}

/// Reads to the end, whatever size is reported: files in /proc report 0, and others can grow in the meantime.
FileContents ReadAtMost(int file, qint64 claimed, qint64 most) {
    constexpr qint64 kPiece = 4096;
    QByteArray bytes;
    qint64 filled = 0;
    while (filled <= most) {
        bytes.resize(std::min(most + 1, std::max(claimed + 1, filled + kPiece)));
        const ssize_t count =
            read(file, bytes.data() + filled, static_cast<std::size_t>(bytes.size() - filled));
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0) {
            return SystemError(errno);
        }
        if (count == 0) {
            bytes.truncate(filled);
            return {FileProblem::None, std::move(bytes), QString()};
        }
        filled += count;
    }
    return TooLarge(most);
}

}  // namespace

bool EntryExists(const QString& path) {
    const QFileInfo file(path);
    return file.exists() || file.isSymLink();
}

FileContents ReadRegularFile(const QString& path, qint64 most) {
    const QByteArray name = QFile::encodeName(path);
    struct stat state {};
    if (stat(name.constData(), &state) != 0) {
        return SystemError(errno);
    }
    if (auto objection = Objection(state, most)) {
        return *std::move(objection);
    }
    // Opened without blocking and checked again: the file may have been replaced in the meantime.
    const int file = open(name.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (file < 0) {
        return SystemError(errno);
    }
    FileContents contents;
    if (fstat(file, &state) != 0) {
        contents = SystemError(errno);
    } else if (auto objection = Objection(state, most)) {
        contents = *std::move(objection);
    } else {
        contents = ReadAtMost(file, state.st_size, most);
    }
    close(file);  // errors do not matter: nothing was written
    return contents;
}

}  // namespace tickwell
