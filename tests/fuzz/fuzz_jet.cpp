// SPDX-License-Identifier: GPL-3.0-or-later
// Files in Jet format. An input is such a file, or patches for a valid one: the number of the valid file,
// then for each patch its page, the offset in the page (two bytes) and the new byte. A file is read
// completely or refused, and the day database that the import creates from it contains the same rows.

#include <QFile>
#include <array>

#include "fuzz/fuzz_check.h"
#include "store/day_database.h"
#include "store/jet/day_file_writer.h"
#include "store/jet/jet_error.h"
#include "support/files.h"

using namespace Qt::StringLiterals;
using namespace tickwell;

namespace {

constexpr qsizetype kPatch = 4;  // bytes per patch

const QByteArray& SoundFile(std::size_t number) {
    static const QList<QByteArray> files = [] {
        QList<QByteArray> all;
        for (const auto* name :
             {"jet3_full", "jet3_nulls", "jet3_encrypted", "jet3_reference_maps", "jet3_wide", "jet3_cp1252",
              "jet4_full", "jet4_nulls", "jet4_deleted", "jet4_extra"}) {
            all.append(ReadAll(
                u"%1/%2.mdb"_s.arg(QLatin1StringView(TICKWELL_JET_SAMPLES), QLatin1StringView(name))));
            Require(!all.constLast().isEmpty(), "there are sound files");
        }
        return all;
    }();
    return files[static_cast<qsizetype>(number) % files.size()];
}

QByteArray FileOf(const QByteArray& input) {
    if (input.isEmpty() || store::KindOfFile(input) != store::JetFileKind::Other) {
        return QByteArray(input.constData(), input.size());
    }
    QByteArray file = SoundFile(static_cast<quint8>(input.front()));
    const qsizetype pageSize = file.at(0x14) == 0 ? 2048 : 4096;
    for (qsizetype at = 1; at + kPatch <= input.size(); at += kPatch) {
        const auto number = [&](qsizetype offset) { return static_cast<quint8>(input[at + offset]); };
        const qsizetype page = number(0) % (file.size() / pageSize);
        const qsizetype place = (number(1) << 8 | number(2)) % pageSize;
        file[page * pageSize + place] = input[at + 3];
    }
    return file;
}

std::optional<store::DayRows> RowsOf(const QByteArray& file) {
    try {
        return store::ReadDayRows(store::JetFile(file));
    } catch (const store::JetError& error) {
        Require(!error.Reason().isEmpty(), "a refusal has a reason");
        return std::nullopt;
    }
}

void RequireFits(const store::DayValue& value, store::ColumnType type) {
    const auto* text = std::get_if<QString>(&value);
    Require((text == nullptr) == (type == store::ColumnType::Integer), "a value is of its column's type");
    if (type == store::ColumnType::Date) {
        Require(text->size() == 10 && QDate::fromString(*text, Qt::ISODate).isValid(), "a date is a date");
    }
}

store::DayValue ValueAt(const store::ResultRow& row, const store::SchemaColumn& column) {
    switch (column.type) {
        case store::ColumnType::Integer:
            return row.Integer(column.name);
        case store::ColumnType::Date:
            return row.Date(column.name).toString(Qt::ISODate);
        case store::ColumnType::Text:
            break;
    }
    return row.Text(column.name);
}

QList<QList<store::DayValue>> RowsIn(store::DayDatabase& database, const store::SchemaTable& table) {
    const bool hasMonth = store::FindColumn(table.columns, u"Month").has_value();
    const QString condition = hasMonth ? u"Month<0 OR Month>=0"_s : u"Date>=#1/1/0100#"_s;
    QList<QList<store::DayValue>> rows;
    for (const store::ResultRow& row :
         database.RunQuery(u"SELECT * FROM "_s + table.name + u" WHERE " + condition)) {
        QList<store::DayValue> values;
        for (const store::SchemaColumn& column : table.columns) {
            values.append(ValueAt(row, column));
        }
        rows.append(values);
    }
    return rows;
}

void RequireStored(const store::DayRows& rows) {
    static const QuickFolder folder;
    const QString path = folder.File("DayDate.mdb");
    WriteAll(path, QByteArray());
    store::WriteDayFile(path, rows);
    store::DayDatabase database(path);
    for (std::size_t i = 0; i < store::SchemaTables().size(); ++i) {
        Require(RowsIn(database, store::SchemaTables()[i]) == rows.at(static_cast<qsizetype>(i)).rows,
                "what was read is what is stored");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto rows = RowsOf(FileOf(InputBytes(data, size)));
    if (!rows) {
        return 0;
    }
    const auto tables = store::SchemaTables();
    Require(static_cast<std::size_t>(rows->size()) == tables.size(), "all tables or none");
    for (std::size_t i = 0; i < tables.size(); ++i) {
        for (const QList<store::DayValue>& row : rows->at(static_cast<qsizetype>(i)).rows) {
            Require(static_cast<std::size_t>(row.size()) == tables[i].columns.size(),
                    "a value for each column");
            for (std::size_t column = 0; column < tables[i].columns.size(); ++column) {
                RequireFits(row.at(static_cast<qsizetype>(column)), tables[i].columns[column].type);
            }
        }
    }
    RequireStored(*rows);
    return 0;
}
