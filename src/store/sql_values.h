// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <optional>

#include "store/bound_value.h"
#include "store/day_schema.h"
#include "store/sql_tree.h"

namespace tickwell::store {

/// The bound value for comparing `literal` with a column of that type; nullopt if its type differs.
std::optional<BoundValue> ComparedValue(ColumnType type, const SqlLiteral& literal);

/// The bound value for storing `literal` in a column of that type; nullopt if that is impossible. A number
/// may be quoted.
std::optional<BoundValue> StoredValue(ColumnType type, const SqlLiteral& literal);

}  // namespace tickwell::store
