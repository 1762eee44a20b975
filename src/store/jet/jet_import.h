// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <optional>

#include "store/jet/day_rows.h"
#include "store/store_disk.h"

namespace tickwell::store {

/// The result of an import.
struct JetImportSummary {
    QList<qsizetype> rows;    // number of rows, in the order of SchemaTables()
    int withoutDate = 0;      // rows left out because their date was NULL
    int unreadableNames = 0;  // names in which a character was replaced by U+FFFD
    QString keptAs;  // file name of the original, which stays in the folder; its path if a link was followed
};

/// Converts the day database `path` to this program's format if it is a Jet 3 or Jet 4 file. Call it once,
/// before the database is opened. The original stays beside it as DayDate.jet.mdb, or under another name if
/// that one belongs to a different file. A symbolic link is kept: everything happens in the folder of its
/// target. Returns nullopt if there is nothing to convert: the program's own format, any other file, or no
/// file. Opening the database then reports a problem if there is one.
///
/// A complete file `path`, the original or the new one, exists at every moment. Throws RunTimeError with the
/// path in the reason; the folder is then unchanged.
std::optional<JetImportSummary> ImportJetFile(const QString& path);

/// The same with the given file operations.
std::optional<JetImportSummary> ImportJetFile(const QString& path, StoreDisk& disk);

/// The text of the message box that reports the import.
QString JetImportText(const JetImportSummary& summary);

}  // namespace tickwell::store
