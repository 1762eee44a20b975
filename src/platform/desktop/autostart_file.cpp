// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/autostart_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <algorithm>

#include "core/errors.h"
#include "core/exec_line.h"
#include "core/ini_document.h"
#include "core/regular_file.h"
#include "platform/files/base_directories.h"
#include "platform/files/file_replacement.h"
#include "platform/files/unfinished_files.h"
#include "platform/log.h"

namespace tickwell::platform {

using namespace Qt::StringLiterals;

namespace {

const QString& Section() {
    static const QString section = u"Desktop Entry"_s;
    return section;
}

/// Empty if the file cannot be read: the desktop starts nothing in that case either.
QByteArray Contents(const QString& path) {
    constexpr qint64 kLargest = qint64{64} << 10;
    FileContents contents = ReadRegularFile(path, kLargest);
    if (contents.problem != FileProblem::None) {
        qCWarning(PlatformLog, "cannot read %s: %s", qUtf8Printable(path), qUtf8Printable(contents.reason));
    }
    return contents.bytes;
}

/// Whether a desktop starts the program of this entry.
bool Starts(const QByteArray& entry) {
    const IniDocument document(entry);
    const auto value = [&document](const QString& key) { return document.Value(Section(), key); };
    const auto program = value(u"TryExec"_s);
    return value(u"Exec"_s) && value(u"Hidden"_s) != "true" &&
           value(u"X-GNOME-Autostart-enabled"_s) != "false" &&  // written by the settings of several desktops
           (!program || !QStandardPaths::findExecutable(QString::fromUtf8(*program)).isEmpty());
}

IniDocument NamedEntry() {
    IniDocument entry{QByteArray()};
    entry.SetValue(Section(), u"Type"_s, u"Application"_s);
    entry.SetValue(Section(), u"Name"_s, u"Tickwell"_s);
    return entry;
}

/// Contains TryExec: if the program was removed, the desktop silently ignores the entry.
QByteArray StartingEntry(const QStringList& command) {
    IniDocument entry = NamedEntry();
    entry.SetValue(Section(), u"Comment"_s, u"A clock that stays on the desktop"_s);
    entry.SetValue(Section(), u"Comment[ja]"_s, u"いつも画面の手前にある小さな時計"_s);
    entry.SetValue(Section(), u"Icon"_s, u"tickwell"_s);
    entry.SetValue(Section(), u"TryExec"_s, command.constFirst());
    entry.SetValue(Section(), u"Exec"_s, ExecLine(command));
    entry.SetValue(Section(), u"Terminal"_s, u"false"_s);
    return entry.Bytes();
}

QByteArray HidingEntry() {
    IniDocument entry = NamedEntry();
    entry.SetValue(Section(), u"Hidden"_s, u"true"_s);
    return entry.Bytes();
}

}  // namespace

AutostartFile::AutostartFile(const QStringList& folders, QStringList command)
    : m_command(std::move(command)) {
    for (const QString& folder : folders) {
        m_files.append(folder + u"/tickwell.desktop");
    }
}

QStringList AutostartFile::Folders() {
    QStringList folders = ConfigFolders();
    for (QString& folder : folders) {
        folder += u"/autostart";
    }
    return folders;
}

bool AutostartFile::IsOn() const {
    const auto file = std::find_if(m_files.begin(), m_files.end(), EntryExists);
    return file != m_files.end() && Starts(Contents(*file));
}

void AutostartFile::Set(bool on) {
    if (on) {
        Write(StartingEntry(m_command));
    } else if (IsForEverybody()) {
        Write(HidingEntry());
    } else {
        Remove();
    }
}

bool AutostartFile::IsForEverybody() const {
    return std::any_of(m_files.begin() + 1, m_files.end(), EntryExists);
}

void AutostartFile::Write(const QByteArray& entry) const {
    const QString what = u"ログイン時の起動についてのファイルを書き込めません。"_s;
    const QString& path = m_files.constFirst();
    if (!QDir().mkpath(QFileInfo(path).path())) {
        throw FileError(what, path, u"フォルダーを作成できません。"_s);
    }
    RemoveUnfinished(path);
    const QFileInfo old(path);
    if (old.isSymLink() && !old.isFile()) {
        Remove();  // some users hide an entry with a link to /dev/null: replaces the link, not the device
    }
    if (const QString reason = ReplaceFile(path, entry); !reason.isEmpty()) {
        throw FileError(what, path, reason);
    }
}

void AutostartFile::Remove() const {
    QFile file(m_files.constFirst());
    if (EntryExists(file.fileName()) && !file.remove()) {
        throw FileError(u"ログイン時の起動についてのファイルを削除できません。"_s, file.fileName(),
                        file.errorString());
    }
}

}  // namespace tickwell::platform
