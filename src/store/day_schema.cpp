// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/day_schema.h"

#include <algorithm>
#include <array>

namespace tickwell::store {

namespace {

constexpr std::array kKinenbi{
    SchemaColumn{u"Name", ColumnType::Text},     SchemaColumn{u"Year", ColumnType::Integer},
    SchemaColumn{u"Month", ColumnType::Integer}, SchemaColumn{u"Day", ColumnType::Integer},
    SchemaColumn{u"Week", ColumnType::Integer},
};
constexpr std::array kSyukuzitu{
    SchemaColumn{u"Name", ColumnType::Text},
    SchemaColumn{u"Month", ColumnType::Integer},
    SchemaColumn{u"Day", ColumnType::Integer},
};
constexpr std::array kMarkedDates{SchemaColumn{u"Date", ColumnType::Date}};

constexpr std::array kTables{
    SchemaTable{u"Kinenbi", kKinenbi},        SchemaTable{u"Syukuzitu", kSyukuzitu},
    SchemaTable{u"Holiday", kMarkedDates},    SchemaTable{u"Halfday", kMarkedDates},
    SchemaTable{u"Usuallyday", kMarkedDates},
};

template <typename Named>
const Named* Find(std::span<const Named> all, QStringView name) {
    const auto found = std::find_if(all.begin(), all.end(), [name](const Named& one) {
        return one.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == all.end() ? nullptr : &*found;
}

}  // namespace

std::span<const SchemaTable> SchemaTables() {
    return kTables;
}

const SchemaTable* FindTable(QStringView name) {
    return Find<SchemaTable>(kTables, name);
}

std::optional<std::size_t> FindColumn(std::span<const SchemaColumn> columns, QStringView name) {
    const SchemaColumn* found = Find(columns, name);
    if (found == nullptr) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(found - columns.data());
}

}  // namespace tickwell::store
