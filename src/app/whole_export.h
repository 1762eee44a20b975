// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QString>
#include <QStringList>

#include "core/program_folder.h"
#include "store/store_disk.h"

namespace tickwell::app {

inline constexpr QLatin1StringView kSettingsFile("TKW2.ini");

/// The files of an export: settings and day database, and, if the program has them, timers and alarms, and
/// the official list of days off.
QStringList ExportedFiles();

/// Writes checked copies of all of them to a new folder in the folder `target`, "Tickwell-2026-11-22", or
/// with a number behind it if that exists; returns its path. It appears when it is complete. `settings`: the
/// path of the settings file. Throws RunTimeError; there is no new folder then. Can run on any thread while
/// the program uses the files.
QString ExportEverything(const ProgramFolder& folder, const QString& settings, const QString& target,
                         QDate day, store::StoreDisk& disk);

}  // namespace tickwell::app
