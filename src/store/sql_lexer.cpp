// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/sql_lexer.h"

#include <algorithm>
#include <limits>

#include "core/ascii.h"
#include "store/sql_error.h"
#include "store/sql_quoting.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFirstYear = 100;

// ASCII only: full-width digits and letters are not part of the dialect.
bool IsBlank(QChar c) {
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n';
}
bool IsLetter(QChar c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

/// A part of a date with `least` to `most` digits; -1 if it is not one.
int DatePart(QStringView digits, int least, int most) {
    const bool fits = digits.size() >= least && digits.size() <= most;
    return fits && std::all_of(digits.begin(), digits.end(), IsAsciiDigit) ? digits.toInt() : -1;
}

}  // namespace

std::optional<qint32> ExactInteger(QStringView text) {
    const bool negative = text.startsWith(u'-');
    const QStringView digits = text.sliced(negative ? 1 : 0);
    if (digits.isEmpty()) {
        return std::nullopt;
    }
    constexpr qint64 kLimit = qint64{std::numeric_limits<qint32>::max()} + 1;
    qint64 value = 0;
    for (const QChar digit : digits) {
        if (!IsAsciiDigit(digit)) {
            return std::nullopt;
        }
        value = value * 10 + (digit.unicode() - u'0');  // never above 10 * kLimit + 9
        if (value > kLimit) {
            return std::nullopt;
        }
    }
    if (!negative && value == kLimit) {
        return std::nullopt;
    }
    return static_cast<qint32>(negative ? -value : value);
}

SqlToken SqlLexer::Next() {
    TakeWhile(IsBlank);
    if (m_position == m_sql.size()) {
        return {};
    }
    const QChar first = At(m_position);
    if (IsLetter(first)) {
        return {TokenKind::Word, TakeWhile(IsLetter), {}};
    }
    if (IsAsciiDigit(first) || first == u'-') {
        return Integer();
    }
    if (first == u'"') {
        return Text();
    }
    return first == u'#' ? Date() : Symbol();
}

QChar SqlLexer::At(qsizetype position) const {
    return position < m_sql.size() ? m_sql[position] : QChar();
}

template <typename Predicate>
QStringView SqlLexer::TakeWhile(Predicate belongs) {
    const qsizetype start = m_position;
    while (m_position < m_sql.size() && belongs(m_sql[m_position])) {
        ++m_position;
    }
    return m_sql.sliced(start, m_position - start);
}

SqlToken SqlLexer::Integer() {
    const qsizetype start = m_position;
    if (At(m_position) == u'-') {
        ++m_position;
    }
    TakeWhile(IsAsciiDigit);
    const auto value = ExactInteger(m_sql.sliced(start, m_position - start));
    if (!value) {
        Refuse(u"SQL文の数値が正しくありません。"_s);
    }
    return {TokenKind::Literal, {}, *value};
}

SqlToken SqlLexer::Text() {
    ++m_position;  // the opening quote
    const QStringView text = TakeWhile([](QChar c) { return !EndsText(c); });
    if (At(m_position) != u'"') {
        Refuse(u"SQL文の文字列が正しくありません。"_s);
    }
    ++m_position;
    return {TokenKind::Literal, {}, text.toString()};
}

SqlToken SqlLexer::Date() {
    ++m_position;  // the opening #
    const auto parts = TakeWhile([](QChar c) { return IsAsciiDigit(c) || c == u'/'; }).split(u'/');
    QDate date;
    if (At(m_position) == u'#' && parts.size() == 3) {
        const int year = DatePart(parts[2], 4, 4);
        date = QDate(year < kFirstYear ? 0 : year, DatePart(parts[0], 1, 2), DatePart(parts[1], 1, 2));
    }
    if (!date.isValid()) {
        Refuse(u"SQL文の日付が正しくありません。"_s);
    }
    ++m_position;
    return {TokenKind::Literal, {}, date};
}

SqlToken SqlLexer::Symbol() {
    const QChar first = At(m_position);
    const QChar second = At(m_position + 1);
    const bool isPair =
        (second == u'=' && (first == u'<' || first == u'>')) || (first == u'<' && second == u'>');
    if (!isPair && !QStringView(u"*,.()=<>").contains(first)) {
        Refuse(u"SQL文に使えない文字があります。"_s);
    }
    const qsizetype start = m_position;
    m_position += isPair ? 2 : 1;
    return {TokenKind::Symbol, m_sql.sliced(start, m_position - start), {}};
}

void SqlLexer::Refuse(const QString& reason) const {
    throw SqlError(reason, m_sql.toString());
}

}  // namespace tickwell::store
