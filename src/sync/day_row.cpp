// SPDX-License-Identifier: GPL-3.0-or-later
#include "sync/day_row.h"

#include <QDate>
#include <algorithm>
#include <array>
#include <utility>

namespace tickwell::sync {

namespace {

// What a text is written as, so that a row stays one line and a value one field.
constexpr std::array kEscapes{std::pair{'\\', '\\'}, std::pair{'\t', 't'}, std::pair{'\n', 'n'},
                              std::pair{'\r', 'r'}, std::pair{'\0', '0'}};

void AppendEscaped(QByteArray& text, QByteArrayView value) {
    for (const char byte : value) {
        char escape = 0;
        for (const auto& [plain, written] : kEscapes) {
            escape = byte == plain ? written : escape;
        }
        if (escape != 0) {
            text += '\\';
        }
        text += escape != 0 ? escape : byte;
    }
}

std::optional<QByteArray> Unescaped(QByteArrayView text) {
    QByteArray value;
    value.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            value += text[i];
            continue;
        }
        ++i;
        const qsizetype before = value.size();
        for (const auto& [plain, written] : kEscapes) {
            if (i < text.size() && text[i] == written) {
                value += plain;
            }
        }
        if (value.size() == before) {
            return std::nullopt;
        }
    }
    return value;
}

/// The values of the other computers must be readable for this program, and written in one way only.
bool IsValue(const store::SchemaColumn& column, const QByteArray& value) {
    switch (column.type) {
        case store::ColumnType::Text:
            return true;
        case store::ColumnType::Integer: {
            bool isNumber = false;
            const qint32 number = value.toInt(&isNumber);
            return isNumber && QByteArray::number(number) == value;
        }
        case store::ColumnType::Date: {
            const QString text = QString::fromLatin1(value);
            const QDate date = QDate::fromString(text, Qt::ISODate);
            return date.isValid() && date.toString(Qt::ISODate) == text;
        }
    }
    Q_UNREACHABLE();
}

bool AreValues(const DayRow& row) {
    for (std::size_t i = 0; i < row.values.size(); ++i) {
        if (!IsValue(row.table->columns[i], row.values[i])) {
            return false;
        }
    }
    return true;
}

}  // namespace

std::optional<QByteArray> EncodeRow(const DayRow& row) {
    Q_ASSERT(row.table != nullptr && row.values.size() == row.table->columns.size());
    if (!AreValues(row)) {
        return std::nullopt;
    }
    QByteArray text = row.table->name.toLatin1();
    for (const QByteArray& value : row.values) {
        text += '\t';
        AppendEscaped(text, value);
    }
    return text.size() <= kLongestRow ? std::optional(std::move(text)) : std::nullopt;
}

std::optional<DayRow> DecodeRow(QByteArrayView text) {
    if (text.size() > kLongestRow) {
        return std::nullopt;
    }
    const qsizetype nameEnd = std::max(text.indexOf('\t'), qsizetype{0});
    const QString name = QString::fromLatin1(text.first(nameEnd));
    const store::SchemaTable* table = store::FindTable(name);
    if (table == nullptr || table->name != name) {
        return std::nullopt;
    }
    DayRow row{table, {}};
    for (qsizetype at = nameEnd; at != -1;) {
        const qsizetype end = text.indexOf('\t', at + 1);
        auto value = Unescaped(text.sliced(at + 1, (end == -1 ? text.size() : end) - at - 1));
        if (!value || row.values.size() == table->columns.size()) {
            return std::nullopt;
        }
        row.values.push_back(*std::move(value));
        at = end;
    }
    if (row.values.size() != table->columns.size() || EncodeRow(row) != text) {
        return std::nullopt;
    }
    return row;
}

}  // namespace tickwell::sync
