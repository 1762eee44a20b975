// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

#include "store/jet/jet_pages.h"

namespace tickwell::store {

/// The column types that can be read; a table may have columns of other types.
enum class JetType : quint8 { Byte = 2, Int16 = 3, Int32 = 4, Single = 6, Double = 7, Date = 8, Text = 10 };

struct JetColumn {
    QString name;
    JetType type = JetType::Byte;
    quint16 number = 0;  // index of its bit in a row's null mask; a deleted column keeps its number
    bool fixed = false;
    quint16 fixedOffset = 0;    // if fixed: offset after the row's column count
    quint16 variableIndex = 0;  // if not fixed: index among the row's variable fields
    quint16 codePage = 0;       // of a Jet 3 text; 0: that of the database
};

/// A table as its definition pages describe it.
struct JetDefinition {
    quint32 page = 0;  // the first definition page, which identifies the table in the file
    quint32 rowCount = 0;
    JetRowAddress usedPages;
    QList<JetColumn> columns;
};

/// Throws JetDamageError.
JetDefinition ReadDefinition(const JetPages& pages, quint32 page);

}  // namespace tickwell::store
