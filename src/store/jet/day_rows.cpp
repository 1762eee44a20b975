// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/jet/day_rows.h"

#include <optional>
#include <vector>

#include "store/day_schema.h"
#include "store/jet/jet_error.h"
#include "store/jet/jet_text.h"
#include "store/jet/jet_values.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

bool Fits(JetType stored, ColumnType wanted) {
    switch (wanted) {
        case ColumnType::Text:
            return stored == JetType::Text;
        case ColumnType::Integer:
            return IsNumber(stored);
        case ColumnType::Date:
            return stored == JetType::Date;
    }
    return false;
}

const JetColumn* Require(const JetTable& stored, const SchemaTable& table, const SchemaColumn& column) {
    const JetColumn* found = stored.Find(column.name);
    if (found == nullptr) {
        throw JetError(u"表「%1」に列「%2」がありません。"_s.arg(table.name, column.name));
    }
    if (!Fits(found->type, column.type)) {
        throw JetError(u"表「%1」の列「%2」の型は読み込めません。"_s.arg(table.name, column.name));
    }
    return found;
}

/// Reads one column of one table.
class ColumnReader {
public:
    ColumnReader(const JetPages& pages, const JetColumn* stored, ColumnType type)
        : m_type(type), m_column(stored), m_text(pages, stored->codePage) {}

    /// nullopt if a date is NULL.
    std::optional<DayValue> Read(const JetRow& row) const {
        const auto field = row.Field(*m_column);
        switch (m_type) {
            case ColumnType::Text:
                return field ? m_text.Decode(*field) : QString();
            case ColumnType::Integer:
                return field ? JetInteger(m_column->type, *field) : 0;
            case ColumnType::Date:
                break;
        }
        return field ? std::optional<DayValue>(JetDate(*field).toString(Qt::ISODate)) : std::nullopt;
    }

private:
    ColumnType m_type;
    const JetColumn* m_column;
    JetText m_text;
};

/// Appends one row, or counts it if it has no date.
void AppendRow(const std::vector<ColumnReader>& readers, const JetRow& row, DayTableRows& result) {
    QList<DayValue> values;
    bool unreadable = false;
    for (const ColumnReader& reader : readers) {
        const auto value = reader.Read(row);
        if (!value) {
            ++result.withoutDate;
            return;
        }
        const QString* text = std::get_if<QString>(&*value);
        unreadable = unreadable || (text != nullptr && text->contains(QChar::ReplacementCharacter));
        values.append(*value);
    }
    result.unreadableNames += unreadable ? 1 : 0;
    result.rows.append(values);
}

DayTableRows ReadTable(const JetFile& file, const SchemaTable& table) {
    const JetTable stored = file.Table(table.name);
    std::vector<ColumnReader> readers;
    for (const SchemaColumn& column : table.columns) {
        readers.emplace_back(file.Pages(), Require(stored, table, column), column.type);
    }
    DayTableRows result;
    quint32 count = 0;
    stored.ForEachRow([&](const JetRow& row) {
        ++count;
        AppendRow(readers, row, result);
    });
    if (count != stored.RowCount()) {
        throw JetError(u"表「%1」の行数が合いません（%2 行のはずが %3 行）。"_s.arg(table.name)
                           .arg(stored.RowCount())
                           .arg(count));
    }
    return result;
}

}  // namespace

DayRows ReadDayRows(const JetFile& file) {
    DayRows rows;
    for (const SchemaTable& table : SchemaTables()) {
        rows.append(ReadTable(file, table));
    }
    return rows;
}

}  // namespace tickwell::store
