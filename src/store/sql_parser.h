// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/sql_tree.h"

namespace tickwell::store {

/// Reads one statement of the day database's SQL subset:
///
///     SELECT * | T.c,T.c..  FROM T WHERE condition
///     DELETE [* | T.c,T.c..] FROM T WHERE condition
///     INSERT INTO T[(c,c..)] VALUES (literal,literal..)
///     UPDATE T SET c = literal,c = literal.. WHERE condition
///
/// A condition combines `c op literal` and `c BETWEEN literal AND literal` with AND, OR and brackets, at most
/// 32 deep. The left side is always a column, the right side always a literal, and nothing may follow the
/// condition: a name that breaks out of its quotes can never become another statement. Names and types are
/// not checked here. Throws SqlError.
SqlStatement ParseSql(const QString& sql);

}  // namespace tickwell::store
