// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/sql_parser.h"

#include <array>
#include <utility>

#include "store/sql_error.h"
#include "store/sql_lexer.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

constexpr int kDeepestBrackets = 32;

constexpr std::array kOperators{
    std::pair{QStringView(u"="), SqlOperator::Equal},
    std::pair{QStringView(u"<>"), SqlOperator::NotEqual},
    std::pair{QStringView(u"<="), SqlOperator::LessOrEqual},
    std::pair{QStringView(u">="), SqlOperator::GreaterOrEqual},
    std::pair{QStringView(u"<"), SqlOperator::Less},
    std::pair{QStringView(u">"), SqlOperator::Greater},
};

/// Recursive descent; `m_token` is the next token, not consumed yet.
class Parser {
public:
    explicit Parser(const QString& sql) : m_sql(sql), m_lexer(sql), m_token(m_lexer.Next()) {}

    SqlStatement Statement() {
        SqlStatement statement = AnyStatement();
        if (m_token.kind != TokenKind::End) {
            Refuse();
        }
        return statement;
    }

private:
    SqlStatement AnyStatement() {
        if (TakeKeyword(u"SELECT")) {
            auto columns = Columns();
            return RestOf<SelectStatement>(std::move(columns));
        }
        if (TakeKeyword(u"DELETE")) {
            auto columns = IsKeyword(u"FROM") ? std::vector<QualifiedColumn>() : Columns();
            return RestOf<DeleteStatement>(std::move(columns));
        }
        if (TakeKeyword(u"INSERT")) {
            return Insert();
        }
        Expect(TakeKeyword(u"UPDATE"));
        return Update();
    }

    template <typename Statement>
    Statement RestOf(std::vector<QualifiedColumn> columns) {
        Expect(TakeKeyword(u"FROM"));
        QString table = Name();
        return {std::move(columns), std::move(table), Where()};
    }

    InsertStatement Insert() {
        Expect(TakeKeyword(u"INTO"));
        InsertStatement insert{Name(), {}, {}};
        if (TakeSymbol(u"(")) {
            do {
                insert.columns.push_back(Name());
            } while (TakeSymbol(u","));
            Expect(TakeSymbol(u")"));
        }
        Expect(TakeKeyword(u"VALUES") && TakeSymbol(u"("));
        do {
            insert.values.push_back(Literal());
        } while (TakeSymbol(u","));
        Expect(TakeSymbol(u")"));
        return insert;
    }

    UpdateStatement Update() {
        QString table = Name();
        std::vector<Assignment> assignments;
        Expect(TakeKeyword(u"SET"));
        do {
            QString column = Name();
            Expect(TakeSymbol(u"="));
            assignments.push_back({std::move(column), Literal()});
        } while (TakeSymbol(u","));
        return {std::move(table), std::move(assignments), Where()};
    }

    std::vector<QualifiedColumn> Columns() {
        std::vector<QualifiedColumn> columns;
        if (TakeSymbol(u"*")) {
            return columns;
        }
        do {
            QString table = Name();
            Expect(TakeSymbol(u"."));
            columns.push_back({std::move(table), Name()});
        } while (TakeSymbol(u","));
        return columns;
    }

    Condition Where() {
        Expect(TakeKeyword(u"WHERE"));
        return Alternatives();
    }

    Condition Alternatives() {
        return Joined<AnyOf>(u"OR", [this] { return Conjunction(); });
    }

    Condition Conjunction() {
        return Joined<AllOf>(u"AND", [this] { return Factor(); });
    }

    template <typename Several, typename Part>
    Condition Joined(QStringView keyword, Part part) {
        Condition first = part();
        if (!IsKeyword(keyword)) {
            return first;
        }
        Several several;
        several.parts.push_back(std::move(first));
        while (TakeKeyword(keyword)) {
            several.parts.push_back(part());
        }
        return several;
    }

    Condition Factor() {
        if (TakeSymbol(u"(")) {
            if (++m_depth > kDeepestBrackets) {
                throw SqlError(u"SQL文の括弧が深すぎます。"_s, m_sql);
            }
            Condition inner = Alternatives();
            Expect(TakeSymbol(u")"));
            --m_depth;
            return inner;
        }
        QString column = Name();
        if (TakeKeyword(u"BETWEEN")) {
            SqlLiteral first = Literal();
            Expect(TakeKeyword(u"AND"));
            return Between{std::move(column), std::move(first), Literal()};
        }
        const SqlOperator op = Operator();
        return Comparison{std::move(column), op, Literal()};
    }

    SqlOperator Operator() {
        for (const auto& [symbol, op] : kOperators) {
            if (TakeSymbol(symbol)) {
                return op;
            }
        }
        Refuse();
    }

    QString Name() {
        Expect(m_token.kind == TokenKind::Word);
        return Take().text.toString();
    }

    SqlLiteral Literal() {
        Expect(m_token.kind == TokenKind::Literal);
        return Take().value;
    }

    SqlToken Take() { return std::exchange(m_token, m_lexer.Next()); }

    bool IsKeyword(QStringView keyword) const {
        return m_token.kind == TokenKind::Word && m_token.text.compare(keyword, Qt::CaseInsensitive) == 0;
    }

    bool TakeKeyword(QStringView keyword) { return TakeWhen(IsKeyword(keyword)); }

    bool TakeSymbol(QStringView symbol) {
        return TakeWhen(m_token.kind == TokenKind::Symbol && m_token.text == symbol);
    }

    bool TakeWhen(bool wanted) {
        if (wanted) {
            Take();
        }
        return wanted;
    }

    void Expect(bool holds) const {
        if (!holds) {
            Refuse();
        }
    }

    [[noreturn]] void Refuse() const { throw SqlError(u"SQL文の書き方が正しくありません。"_s, m_sql); }

    const QString& m_sql;
    SqlLexer m_lexer;
    SqlToken m_token;
    int m_depth = 0;
};

}  // namespace

SqlStatement ParseSql(const QString& sql) {
    return Parser(sql).Statement();
}

}  // namespace tickwell::store
