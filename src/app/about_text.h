// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include "core/ports/program_starter.h"

namespace tickwell::app {

/// The first message of thanks: like all of them, two texts joined by a carriage return.
QString FirstThanks();

/// The message after the one shown: the second after the first, the third after the second, otherwise the
/// first.
QString NextThanks(const QString& shown);

/// The message with line feeds, for display.
QString ThanksLines(const QString& message);

/// "Ver." and the three numbers, in decimal.
QString VersionText(int major, int minor, int revision);

/// Facts about the machine that belong in a problem report. Unknown texts are empty.
struct SystemFacts {
    QString programVersion;
    QString qtVersion;
    QString system;       ///< the distribution, with its version
    QString kernel;       ///< name, version and processor
    QString desktop;      ///< name and session type, as in "XFCE x11"
    QString platform;     ///< Qt's platform plugin
    QStringList screens;  ///< each with size in pixels, logical dots per inch and scale
    QString style;
    QString font;
    QString locale;
};

/// Plain text, one fact per line, each line ended by a line feed.
QString FactsText(const SystemFacts& facts);

/// A system information program, by the name of its executable.
struct SystemInformation {
    QString name;
    QStringList arguments;
};

/// The programs to try, best first.
const QList<SystemInformation>& SystemInformationPrograms();

/// Starts the first one that is installed and can be started; returns false if there is none. `folder`: its
/// working folder.
bool StartSystemInformation(ProgramStarter& programs, const QString& folder);

}  // namespace tickwell::app
