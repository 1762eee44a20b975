// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QList>
#include <QString>
#include <optional>

namespace tickwell::store {

/// How many days and weeks have a backup; a week is from Monday to Sunday.
inline constexpr int kBackupDays = 7;
inline constexpr int kBackupWeeks = 8;

/// The file name of the backup of a day: "DayDate-2026-11-22.mdb".
QString BackupName(QDate day);

/// The day of a file name that BackupName returns; nullopt for any other.
std::optional<QDate> DayOfBackup(const QString& name);

/// Which of the backups of `days`, in any order, may be removed after the one of `made` was written. These
/// are kept: those of the newest seven days that have one, and the newest of each of the newest eight weeks
/// that have one, so that a pause in which nothing changed costs no backup. One of a day after `made`, from a
/// time when the clock was wrong, is neither counted nor removed.
QList<QDate> SurplusBackups(QList<QDate> days, QDate made);

}  // namespace tickwell::store
