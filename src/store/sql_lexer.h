// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>
#include <optional>

#include "store/sql_tree.h"

namespace tickwell::store {

enum class TokenKind { Word, Symbol, Literal, End };

struct SqlToken {
    TokenKind kind = TokenKind::End;
    QStringView text;  // the word or symbol as written
    SqlLiteral value;  // of a literal
};

/// Splits a statement into words, symbols and literals. A double quote always ends a text: there is no way to
/// escape one.
class SqlLexer {
public:
    /// `sql` outlives the lexer.
    explicit SqlLexer(QStringView sql) : m_sql(sql) {}

    /// The next token; End at the end of the statement. Throws SqlError at anything that is not a token.
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

/// `text` as a 32-bit number if it consists of an optional minus and ASCII digits only.
std::optional<qint32> ExactInteger(QStringView text);

}  // namespace tickwell::store
