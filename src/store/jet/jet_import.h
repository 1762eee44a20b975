// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <optional>

#include "store/jet/day_rows.h"
#include "store/jet/import_disk.h"

namespace tickwell {

/// What an import brought over.
struct JetImportSummary {
    QList<qsizetype> rows;    // how many, in the order of SchemaTables()
    int withoutDate = 0;      // rows left out because their date was NULL
    int unreadableNames = 0;  // names in which a character was replaced by U+FFFD
    QString keptAs;           // name of the original, which stays in the folder; behind a link, its path
};

/// Turns the day database `path` into ours where it is a Jet 3 or Jet 4 file: to be called once, before the
/// database is opened. The original stays beside it as DayDate.jet.mdb, or under another name where that one
/// is taken by a different file. A symbolic link stays one: all this happens in the folder of the file that
/// it leads to. Gives nothing where there was nothing to do: our own format, any other file, no file; opening
/// the database says what is wrong with those.
///
/// At every moment there is a whole file `path`, the original or the new one. Throws RunTimeError with the
/// path in the reason, and then the folder is as it was.
std::optional<JetImportSummary> ImportJetFile(const QString& path);

/// The same on a given disk.
std::optional<JetImportSummary> ImportJetFile(const QString& path, ImportDisk& disk);

/// The text of the box that tells the user what was imported.
QString JetImportText(const JetImportSummary& summary);

}  // namespace tickwell
