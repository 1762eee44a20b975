// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/table_text.h"

#include <QStringList>
#include <optional>

#include "core/byte_order_mark.h"
#include "core/errors.h"
#include "core/holiday_list_text.h"
#include "core/integer_text.h"
#include "core/words.h"
#include "days/day_rule.h"
#include "exchange/row_rule.h"

namespace tickwell::exchange {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kHead = u"記念日,年,月,日,第何週,曜日";
constexpr int kColumns = 6;
constexpr qsizetype kLongestField = qsizetype{64} * 1024;  // characters
constexpr int kMostTableYear = 9999;

/// The fields of one row after the other; a field in double quotes may contain line ends.
class Fields {
public:
    explicit Fields(const QString& text) : m_text(text) {}

    bool IsAtEnd() const { return m_position >= m_text.size(); }
    int Line() const { return m_line; }

    /// The next row. Throws RunTimeError for a quote that does not end, and for a very long field.
    QStringList Next();

private:
    QString Quoted();
    QString Plain();
    QChar Here() const { return m_position < m_text.size() ? m_text.at(m_position) : QChar(u'\n'); }

    const QString& m_text;
    qsizetype m_position = 0;
    int m_line = 1;
};

QStringList Fields::Next() {
    QStringList fields;
    const int line = m_line;
    for (bool hasMore = true; hasMore;) {
        fields.append(Here() == u'"' ? Quoted() : Plain());
        hasMore = Here() == u',';
        ++m_position;
        if (fields.last().size() > kLongestField || fields.size() > kColumns + 1) {
            throw RunTimeError(u"%1行目が長すぎます。"_s.arg(line));
        }
    }
    ++m_line;
    return fields;
}

QString Fields::Plain() {
    const qsizetype start = m_position;
    while (Here() != u',' && Here() != u'\n') {
        ++m_position;
    }
    QString field = m_text.mid(start, m_position - start);
    if (field.endsWith(u'\r')) {
        field.chop(1);
    }
    return field;
}

QString Fields::Quoted() {
    const int line = m_line;
    QString field;
    ++m_position;
    while (m_position < m_text.size() && (Here() != u'"' || m_text.mid(m_position + 1, 1) == u"\"")) {
        m_line += Here() == u'\n' ? 1 : 0;
        m_position += Here() == u'"' ? 1 : 0;
        field += Here();
        ++m_position;
        if (field.size() > kLongestField) {
            break;
        }
    }
    if (Here() != u'"' || m_position >= m_text.size()) {
        throw RunTimeError(u"%1行目の「\"」が閉じていません。"_s.arg(line));
    }
    ++m_position;
    return field + Plain();
}

/// An empty field or 「毎」 is 0. nullopt for anything else that is no number from 1 to `most`.
std::optional<int> NumberOf(const QString& field, int most) {
    const QString text = field.trimmed();
    if (text.isEmpty() || text == u"毎") {
        return 0;
    }
    try {
        const int number = IntegerOf(text);
        return number >= 1 && number <= most ? std::optional(number) : std::nullopt;
    } catch (const RunTimeError&) {
        return std::nullopt;
    }
}

/// 1 for 「日」, also for 「日曜」 and 「日曜日」; 0 if it is empty.
std::optional<int> WeekdayOfField(const QString& field) {
    const QString text = field.trimmed();
    if (text.isEmpty()) {
        return 0;
    }
    const int weekday = days::WeekdayOfLetter(text.at(0));
    const QString name = days::WeekdayText(weekday == 0 ? 1 : weekday);
    return weekday != 0 && name.startsWith(text) ? std::optional(weekday) : std::nullopt;
}

/// The row of some fields, or why there is none.
QString RowOfFields(const QStringList& fields, days::Anniversary& row) {
    constexpr int kMostTableMonth = 12;
    constexpr int kMostTableDay = 31;
    constexpr int kMostWeek = 5;
    const auto year = NumberOf(fields.value(1), kMostTableYear);
    const auto month = NumberOf(fields.value(2), kMostTableMonth);
    const auto day = NumberOf(fields.value(3), kMostTableDay);
    const auto week = NumberOf(fields.value(4), kMostWeek);
    const auto weekday = WeekdayOfField(fields.value(5));
    if (fields.size() > kColumns) {
        return u"列が多すぎる行"_s;
    }
    if (!year || !month || !day) {
        return !year ? u"年が正しくない行"_s : !month ? u"月が正しくない行"_s : u"日が正しくない行"_s;
    }
    if (!week || !weekday || (*week == 0) != (*weekday == 0)) {
        return u"第何週と曜日が正しくない行"_s;
    }
    row = {.name = {}, .year = *year, .month = *month, .day = *day, .week = 10 * *week + *weekday};
    return RulesOf(row).empty() ? u"どの日にも当たらない行"_s : QString();
}

Entry EntryOfRow(const QStringList& fields, int line) {
    days::Anniversary row;
    const QString reason = RowOfFields(fields, row);
    return reason.isEmpty() ? EntryOf(fields.at(0), row)
                            : RefusedEntry(fields.at(0), u"%1行目"_s.arg(line), reason);
}

QString FieldText(const QString& text) {
    const bool isPlain = !text.contains(u'"') && !text.contains(u',') && !text.contains(u'\n') &&
                         !text.contains(u'\r') && text.trimmed() == text && !text.isEmpty();
    return isPlain ? text : u'"' + QString(text).replace(u"\""_s, u"\"\""_s) + u'"';
}

QString NumberText(int number) {
    return number == 0 ? QString() : QString::number(number);
}

}  // namespace

QByteArray TableHead() {
    return kByteOrderMark.toByteArray() + QString::fromUtf16(kHead).toUtf8() + "\r\n";
}

QByteArray TableLine(const days::Anniversary& row) {
    const QStringList fields{
        FieldText(row.name),       NumberText(row.year),
        NumberText(row.month),     NumberText(row.day),
        NumberText(row.week / 10), row.week == 0 ? QString() : WeekdayLetter(row.week % 10, 1)};
    return fields.join(u',').toUtf8() + "\r\n";
}

bool AddTableLine(const days::Anniversary& row, QByteArray& table) {
    const bool falls = !RulesOf(row).empty();
    if (falls) {
        table += TableLine(row);
    }
    return falls;
}

Offer ReadTable(const QByteArray& file, const std::atomic<bool>& isGivenUp) {
    const TextLines lines = DecodeLines(file);
    if (lines.undecodable) {
        throw RunTimeError(
            u"%1行目の文字を読めません。UTF-8かShift_JISで保存してください。"_s.arg(*lines.undecodable));
    }
    const QString text = lines.lines.join(u'\n');
    Fields rows(text);
    Offer offer;
    while (!rows.IsAtEnd() && !isGivenUp) {
        const int line = rows.Line();
        const QStringList fields = rows.Next();
        const bool isHead = line == 1 && fields.at(0).trimmed() == u"記念日";
        const bool isEmpty = fields.size() == 1 && fields.at(0).trimmed().isEmpty();
        if (!isHead && !isEmpty) {
            offer.entries.push_back(EntryOfRow(fields, line));
        }
    }
    return offer;
}

}  // namespace tickwell::exchange
