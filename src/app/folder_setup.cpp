// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/folder_setup.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include "app/master_record.h"
#include "app/start_error.h"
#include "core/regular_file.h"
#include "platform/files/base_directories.h"
#include "platform/files/file_replacement.h"
#include "platform/files/unfinished_files.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;

namespace {

const QString& DayDatabaseFile() {
    static const QString name = u"DayDate.mdb"_s;
    return name;
}

/// The program's own files; the day database is the user's from the start.
QStringList RefreshedFiles() {
    QStringList files = RequiredFiles();
    files.removeOne(DayDatabaseFile());
    return files;
}

void Copy(const QString& from, const QString& to) {
    const FileContents master = ReadRegularFile(from, kLargestMaster);
    if (master.problem != FileProblem::None) {
        throw RunTimeError(from + u"\r\n" + master.reason);
    }
    if (const QString reason = platform::ReplaceFile(to, master.bytes); !reason.isEmpty()) {
        throw RunTimeError(to + u"\r\n" + reason);
    }
}

/// Fills a new folder beside the final path and renames it. If the program is started twice at once, both
/// starts fill a folder and one of them renames it; the other one then uses that folder.
void FillNew(const QString& folder, const QString& masters) {
    const QString parent = QFileInfo(folder).path();
    if (!QDir().mkpath(parent)) {
        throw RunTimeError(parent + u"\r\nフォルダーを作成できません。");
    }
    const platform::UnfinishedFilesInUse inUse(parent);
    QTemporaryDir unfinished(platform::UnfinishedTemplate(folder));
    if (!unfinished.isValid()) {
        throw RunTimeError(folder + u"\r\n" + unfinished.errorString());
    }
    MasterRecord record;
    for (const QString& name : RequiredFiles()) {
        const QString master = masters + u'/' + name;
        if (masters.isEmpty() || !QFileInfo::exists(master)) {
            // Otherwise the folder would stay incomplete.
            throw StartError(name, InstallationRemedy(masters.isEmpty() ? folder + u'/' + name : master));
        }
        Copy(master, unfinished.filePath(name));
        record.Set(name, master);
    }
    record.Write(unfinished.path());
    if (QDir().rename(unfinished.path(), folder)) {
        unfinished.setAutoRemove(false);
    } else if (!QFileInfo(folder).isDir()) {
        throw RunTimeError(folder + u"\r\nフォルダーを作成できません。");
    }
}

/// Removes unfinished files of starts that were killed.
void RemoveLitter(const QString& folder) {
    const QStringList names = RequiredFiles() + QStringList{MasterRecord::FileName()};
    platform::RemoveUnfinished(folder, names);
    for (const QString& name : names) {
        platform::RemoveUnfinished(folder + u'/' + name);
    }
}

void Refresh(const QString& folder, const QString& masters) {
    MasterRecord record = MasterRecord::Read(folder);
    bool changed = false;
    for (const QString& name : RefreshedFiles()) {
        const QString master = masters + u'/' + name;
        const QString copy = folder + u'/' + name;
        if (QFileInfo::exists(master) && QFileInfo::exists(copy) && !record.IsKnown(name, master) &&
            record.IsUntouched(name, copy)) {
            Copy(master, copy);
            record.Set(name, master);
            changed = true;
        }
    }
    if (changed) {
        record.Write(folder);
    }
}

bool SameFolder(const QString& a, const QString& b) {
    return QFileInfo(a).canonicalFilePath() == QFileInfo(b).canonicalFilePath();
}

}  // namespace

FolderChoices ChoicesOfProcess(const QString& argument, const QString& executableFolder) {
    return {argument, qEnvironmentVariable("TICKWELL_FOLDER"), executableFolder, platform::DataHome()};
}

const QStringList& RequiredFiles() {
    static const QStringList files{DayDatabaseFile(), u"Help.hlp"_s,  u"TKW00.wav"_s, u"TKW01.wav"_s,
                                   u"TKW02.wav"_s,    u"TKW03.wav"_s, u"TKW04.wav"_s, u"TKW05.wav"_s};
    return files;
}

QString ChooseFolder(const FolderChoices& choices) {
    if (!choices.argument.isEmpty()) {
        return QDir(choices.argument).absolutePath();
    }
    if (!choices.environment.isEmpty()) {
        return QDir(choices.environment).absolutePath();
    }
    const QFileInfo own(choices.executableFolder);
    if (QFileInfo::exists(own.filePath() + u'/' + DayDatabaseFile()) && own.isWritable()) {
        return own.absoluteFilePath();
    }
    return choices.dataHome + u"/tickwell";
}

QStringList StartingCommand(const QString& program, const FolderChoices& choices) {
    FolderChoices later = choices;
    later.argument.clear();
    const QString folder = ChooseFolder(choices);
    const bool isChosenNow = SameFolder(ChooseFolder(later), folder);
    later.environment.clear();
    const bool isItsOwn = isChosenNow && SameFolder(ChooseFolder(later), folder);
    return isItsOwn ? QStringList{program} : QStringList{program, u"--folder"_s, folder};
}

QString MastersFolder(const QString& executableFolder) {
    const QString shared = QDir::cleanPath(executableFolder + u"/" TICKWELL_SHARED);
    for (const QString& folder : {executableFolder, shared}) {
        if (QFileInfo::exists(folder + u'/' + DayDatabaseFile())) {
            return folder;
        }
    }
    return QString();
}

QString HelperPath(const QString& executableFolder, const QString& name) {
    const QString beside = executableFolder + u'/' + name;
    return QFileInfo::exists(beside) ? beside
                                     : QDir::cleanPath(executableFolder + u"/" TICKWELL_HELPERS "/" + name);
}

void PrepareFolder(const QString& folder, const QString& masters) {
    RemoveLitter(folder);
    if (!QFileInfo::exists(folder)) {
        FillNew(folder, masters);
    } else if (!masters.isEmpty() && !SameFolder(folder, masters)) {
        Refresh(folder, masters);
    }
}

}  // namespace tickwell::app
