// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include "core/ports/program_starter.h"

namespace tickwell {

/// The first message of thanks: two texts joined by one carriage return, as all of them are.
QString FirstThanks();

/// The message that follows the one that is shown; anything but the first and the second is followed by the
/// first.
QString NextThanks(const QString& shown);

/// A message as lines for drawing.
QString ThanksLines(const QString& message);

/// "Ver." and the three numbers, in decimal.
QString VersionText(int major, int minor, int revision);

/// What a report about the program should tell of the machine it runs on. Unknown texts are empty.
struct SystemFacts {
    QString programVersion;
    QString toolkitVersion;
    QString system;       ///< the distribution, with its version
    QString kernel;       ///< kind, version and processor
    QString desktop;      ///< name and session type, as in "XFCE x11"
    QString platform;     ///< the toolkit's way to the screen
    QStringList screens;  ///< one for each: size in pixels, logical dots per inch, scale
    QString style;
    QString font;
    QString locale;
};

/// One fact a line, plain text, closed by a line feed.
QString FactsText(const SystemFacts& facts);

/// A system information program of a desktop, by the name it is installed under.
struct SystemInformation {
    QString name;
    QStringList arguments;
};

/// Those that are looked for, best first.
const QList<SystemInformation>& SystemInformationPrograms();

/// Starts the first of them that is there and starts; false when none does. `folder`: where it runs.
bool StartSystemInformation(ProgramStarter& programs, const QString& folder);

}  // namespace tickwell
