// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <variant>

#include "store/jet/jet_file.h"

namespace tickwell {

/// A text, a number, or a date as ISO text, as the column's type has it.
using DayValue = std::variant<QString, qint32>;

/// The rows of one table in their order, each with a value for every column that we know of the table.
struct DayTableRows {
    QList<QList<DayValue>> rows;
    int withoutDate = 0;      // rows left out because their date was NULL
    int unreadableNames = 0;  // rows with a text in which a character was replaced by U+FFFD
};

/// One for each of SchemaTables(), in that order.
using DayRows = QList<DayTableRows>;

/// Everything that the import keeps of a Jet file. NULL becomes an empty text or 0. Throws JetError where a
/// table or column is missing or of a type that does not fit, or where a table has not as many rows as it
/// says.
DayRows ReadDayRows(const JetFile& file);

}  // namespace tickwell
