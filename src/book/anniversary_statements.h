// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "days/anniversary.h"

namespace tickwell::book {

/// Statements that write to the anniversary book, for DayDatabase::Execute. A name is put in double quotes
/// unchanged: if it contains a double quote, the database refuses the statement.
QString InsertSql(const days::Anniversary& anniversary);

/// Changes every row equal to `from`, if there is any. The new numbers are quoted like the new name; the
/// database converts them to integers.
QString UpdateSql(const days::Anniversary& from, const days::Anniversary& to);

/// Selects every equal row: those that the two other statements change.
QString SelectSql(const days::Anniversary& anniversary);

/// Deletes every equal row.
QString DeleteSql(const days::Anniversary& anniversary);

}  // namespace tickwell::book
