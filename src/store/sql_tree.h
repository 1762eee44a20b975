// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QString>
#include <variant>
#include <vector>

namespace tickwell::store {

/// A literal as written.
using SqlLiteral = std::variant<qint32, QString, QDate>;

enum class SqlOperator { Equal, NotEqual, LessOrEqual, GreaterOrEqual, Less, Greater };

struct Comparison {
    QString column;
    SqlOperator op;
    SqlLiteral value;
};

/// Both ends are included; with reversed ends the range is empty.
struct Between {
    QString column;
    SqlLiteral first;
    SqlLiteral last;
};

struct AllOf;
struct AnyOf;
using Condition = std::variant<Comparison, Between, AllOf, AnyOf>;

struct AllOf {
    std::vector<Condition> parts;  // two or more
};

struct AnyOf {
    std::vector<Condition> parts;  // two or more
};

struct QualifiedColumn {
    QString table;
    QString column;
};

struct Assignment {
    QString column;
    SqlLiteral value;
};

struct SelectStatement {
    std::vector<QualifiedColumn> columns;  // empty: all
    QString table;
    Condition where;
};

/// `columns` has no effect: entire rows are deleted.
struct DeleteStatement {
    std::vector<QualifiedColumn> columns;
    QString table;
    Condition where;
};

struct InsertStatement {
    QString table;
    std::vector<QString> columns;  // empty: all, in schema order
    std::vector<SqlLiteral> values;
};

struct UpdateStatement {
    QString table;
    std::vector<Assignment> assignments;
    Condition where;
};

using SqlStatement = std::variant<SelectStatement, DeleteStatement, InsertStatement, UpdateStatement>;

}  // namespace tickwell::store
