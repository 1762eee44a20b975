// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "store/store_disk.h"

namespace tickwell::store {

/// A name beside `path` that no file has yet, for keeping a file that is replaced:
/// "DayDate.before-restore.mdb", or with a number: what was kept earlier is not overwritten.
QString FreeKeptName(const QString& path);

/// Keeps a file that is about to be replaced under such a name, as a second name of the same file or, on a
/// file system without hard links, as a copy; returns the name. It must not be open. Throws RunTimeError.
QString KeepFile(const QString& path, StoreDisk& disk);

/// Whether the file system of a link that failed has no hard links.
bool MeansNoLinks(const DiskError& error);

/// Removes names from FreeKeptName that are still second names of the file itself: a killed program has left
/// them, and did not replace the file. Throws RunTimeError.
void RemoveSecondNames(const QString& path, StoreDisk& disk);

}  // namespace tickwell::store
