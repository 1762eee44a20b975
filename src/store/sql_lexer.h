// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>
#include <optional>

#include "store/sql_tree.h"

namespace tickwell {

enum class TokenKind { Word, Symbol, Literal, End };

struct SqlToken {
    TokenKind kind = TokenKind::End;
    QStringView text;  // a word or a symbol, as written
    SqlLiteral value;  // of a literal
};

/// Cuts a statement into words, symbols and literals. A double quote ends a text wherever it stands: there is
/// no way to write one inside.
class SqlLexer {
public:
    /// `sql` outlives the lexer.
    explicit SqlLexer(QStringView sql) : m_sql(sql) {}

    /// The next token; End from the end on. Throws SqlError at whatever is none.
    SqlToken Next();

private:
    QChar At(qsizetype position) const;
    template <typename Predicate>
    QStringView TakeWhile(Predicate belongs);
    SqlToken Integer();
    SqlToken Text();
    SqlToken Date();
    SqlToken Symbol();
    [[noreturn]] void Refuse(const QString& reason) const;

    QStringView m_sql;
    qsizetype m_position = 0;
};

/// `text` as a 32-bit number when it is exactly an optional minus and ASCII digits.
std::optional<qint32> ExactInteger(QStringView text);

}  // namespace tickwell
