// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace tickwell::app {

/// Inputs for choosing the program's folder.
struct FolderChoices {
    QString argument;          ///< --folder, empty if not given
    QString environment;       ///< $TICKWELL_FOLDER, empty if not set
    QString executableFolder;  ///< real path of the folder of the binary
    QString dataHome;          ///< $XDG_DATA_HOME or its default
};

/// The choices of this process. `argument`: the value of --folder.
FolderChoices ChoicesOfProcess(const QString& argument, const QString& executableFolder);

/// The eight files that the program requires, in the order in which they are checked.
const QStringList& RequiredFiles();

/// The absolute path of the folder for database, help, sounds and tools: the one given by argument or
/// environment; otherwise the binary's own folder if it is writable and contains DayDate.mdb (portable);
/// otherwise a folder in the user's data home.
QString ChooseFolder(const FolderChoices& choices);

/// The command that starts `program` again with the folder of these choices, which exists. Contains --folder
/// unless the program would choose that folder without it, whether or not TICKWELL_FOLDER is set as in these
/// choices. `program`: an absolute path.
QStringList StartingCommand(const QString& program, const FolderChoices& choices);

/// The folder of the master files that are installed with the program: beside the binary, or the installed
/// data folder relative to it; empty if not found.
QString MastersFolder(const QString& executableFolder);

/// The path of a helper program, such as "tickwell-cd": beside the executable if
/// it exists there, otherwise in the folder of installed helpers.
QString HelperPath(const QString& executableFolder, const QString& name);

/// Prepares `folder`. A missing one is filled beside its final path and then renamed, so that it never exists
/// half filled. In an existing one, help and sounds that the user has not changed are updated if the masters
/// have changed; DayDate.mdb never is. Removes unfinished files of starts that were killed. Throws
/// RunTimeError.
void PrepareFolder(const QString& folder, const QString& masters);

}  // namespace tickwell::app
