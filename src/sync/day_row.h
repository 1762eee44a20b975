// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <optional>
#include <vector>

#include "store/day_schema.h"

namespace tickwell::sync {

/// A row of the day database: its table, and the bytes of its values, integers as decimal digits.
struct DayRow {
    const store::SchemaTable* table = nullptr;  ///< of the schema
    std::vector<QByteArray> values;             ///< one per column
};

/// Longer rows stay on their computer: lines must be readable in bounded memory.
inline constexpr qsizetype kLongestRow = qsizetype{256} * 1024;  // bytes as encoded

/// The row in one line without its end: the name of the table and the values, separated by tabs, with "\\",
/// "\t", "\n", "\r" and "\0" for these characters. Two rows are equal if and only if their texts are. nullopt
/// for a row that stays on its computer: it is too long, or holds a number or date that no calendar shows.
std::optional<QByteArray> EncodeRow(const DayRow& row);

/// The row of such a text; nullopt for any text that EncodeRow never returns.
std::optional<DayRow> DecodeRow(QByteArrayView text);

}  // namespace tickwell::sync
