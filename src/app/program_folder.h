// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace tickwell {

/// What the choice of the program's folder depends on.
struct FolderChoices {
    QString argument;          ///< --folder, empty where not given
    QString environment;       ///< $TICKWELL_FOLDER, empty where not set
    QString executableFolder;  ///< real path of the folder that holds the binary
    QString dataHome;          ///< $XDG_DATA_HOME or its default
};

/// The eight files that the program cannot run without, in the order in which they are asked for.
const QStringList& RequiredFiles();

/// The folder that holds database, help, sounds and tools: the one that was named, else the binary's own
/// where a DayDate.mdb lies there and it is writable (portable), else the user's data folder. An absolute
/// path.
QString ChooseFolder(const FolderChoices& choices);

/// The words that start `program` again in the folder of these choices, which exists: with --folder, unless
/// it takes that folder by itself, with the environment of these choices and without it. `program`: an
/// absolute path.
QStringList StartingCommand(const QString& program, const FolderChoices& choices);

/// Where the masters lie that came with the program: beside the binary, or where they are installed, seen
/// from the binary; empty where nowhere.
QString MastersFolder(const QString& executableFolder);

/// The path of a helper program, "tickwell-cd" or "tickwell-print": beside the executable if it is there,
/// else in the folder where helpers are installed.
QString HelperPath(const QString& executableFolder, const QString& name);

/// Makes `folder` ready. One that does not exist yet is filled beside its place and renamed into it, so that
/// a half filled one is never met. In one that exists, help and sounds that the user has not changed are
/// refreshed where the masters are newer; DayDate.mdb never is. What killed starts left unfinished is
/// removed. Throws RunTimeError.
void PrepareFolder(const QString& folder, const QString& masters);

}  // namespace tickwell
