// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/unfinished_files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>
#include <cerrno>

#include "platform/log.h"

namespace tickwell::platform {

using namespace Qt::StringLiterals;

namespace {

constexpr int kTries = 100;
constexpr useconds_t kPauseBetweenTries = 10'000;  // microseconds; a clean-up takes less

constexpr QLatin1StringView kMark(".unfinished-");
constexpr QLatin1StringView kPlaceholder("XXXXXX");  // Qt replaces it with random letters

int OpenFolder(const QString& folder) {
    return open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

bool IsUnfinished(const QString& entry, const QString& name) {
    static const QRegularExpression letters(u"^[A-Za-z0-9]{6}$"_s);
    const QString beginning = u'.' + name + kMark;
    return entry.startsWith(beginning) && letters.match(entry.mid(beginning.size())).hasMatch();
}

void RemoveFile(const QString& path) {
    QFile file(path);
    if (!file.remove()) {
        qCWarning(PlatformLog, "cannot remove %s: %s", qUtf8Printable(path),
                  qUtf8Printable(file.errorString()));
    }
}

/// Removes nothing if the folder contains anything that the program did not create.
void RemoveFolder(const QString& path, const QStringList& files) {
    const QDir folder(path);
    const QStringList entries =
        folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    const auto isOwn = [&](const QString& entry) {
        return std::any_of(files.begin(), files.end(),
                           [&](const QString& name) { return entry == name || IsUnfinished(entry, name); });
    };
    if (!std::all_of(entries.begin(), entries.end(), isOwn)) {
        return;
    }
    for (const QString& entry : entries) {
        RemoveFile(folder.filePath(entry));
    }
    if (!QDir().rmdir(path)) {
        qCWarning(PlatformLog, "cannot remove the folder %s", qUtf8Printable(path));
    }
}

}  // namespace

QString UnfinishedTemplate(const QString& path) {
    const QFileInfo file(path);
    return file.path() + u"/." + file.fileName() + kMark + kPlaceholder;
}

UnfinishedFilesInUse::UnfinishedFilesInUse(const QString& folder) : m_folder(OpenFolder(folder)) {
    // Without the lock, for instance on a file system without locks, the folder is used nevertheless.
    for (int i = 0; m_folder >= 0 && i < kTries && flock(m_folder, LOCK_SH | LOCK_NB) != 0; ++i) {
        if (errno != EWOULDBLOCK && errno != EINTR) {
            break;
        }
        usleep(kPauseBetweenTries);
    }
}

UnfinishedFilesInUse::~UnfinishedFilesInUse() {
    if (m_folder >= 0) {
        close(m_folder);
    }
}

void RemoveUnfinished(const QString& path, const QStringList& filesOfFolder) {
    const QFileInfo made(path);
    const int parent = OpenFolder(made.path());
    if (parent < 0) {
        return;  // nothing was ever created there
    }
    if (flock(parent, LOCK_EX | LOCK_NB) == 0) {
        const QDir folder(made.path());
        const auto filter = QDir::Files | QDir::Dirs | QDir::NoSymLinks | QDir::Hidden | QDir::NoDotAndDotDot;
        for (const QFileInfo& entry : folder.entryInfoList(filter)) {
            if (!IsUnfinished(entry.fileName(), made.fileName()) || entry.ownerId() != geteuid()) {
                continue;
            }
            if (entry.isDir()) {
                RemoveFolder(entry.filePath(), filesOfFolder);
            } else {
                RemoveFile(entry.filePath());
            }
        }
    }
    close(parent);  // releases the lock
}

}  // namespace tickwell::platform
