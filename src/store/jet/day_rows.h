// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <variant>

#include "store/jet/jet_file.h"

namespace tickwell::store {

/// A text, a number, or a date as ISO text, depending on the type of the column.
using DayValue = std::variant<QString, qint32>;

/// The rows of one table in the order of the file, each with a value for every column in the schema.
struct DayTableRows {
    QList<QList<DayValue>> rows;
    int withoutDate = 0;      // rows left out because their date was NULL
    int unreadableNames = 0;  // rows with a text in which a character was replaced by U+FFFD
};

/// One element for each of SchemaTables(), in that order.
using DayRows = QList<DayTableRows>;

/// Reads everything that the import keeps of a Jet file. NULL becomes an empty text or 0. Throws JetError if
/// a table or column is missing or has an unsuitable type, or if the number of rows in a table differs from
/// the one in its definition.
DayRows ReadDayRows(const JetFile& file);

}  // namespace tickwell::store
