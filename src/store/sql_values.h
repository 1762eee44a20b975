// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "store/sql_compiler.h"
#include "store/sql_tree.h"

namespace tickwell {

/// `literal` to be compared with a column of that type; nothing when it is of another type.
std::optional<BoundValue> ComparedValue(ColumnType type, const SqlLiteral& literal);

/// `literal` to be stored in a column of that type; nothing when it cannot be. A number may come in quotes.
std::optional<BoundValue> StoredValue(ColumnType type, const SqlLiteral& literal);

}  // namespace tickwell
