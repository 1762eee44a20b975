// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/jet/jet_file.h"

#include <algorithm>

#include "store/jet/jet_error.h"
#include "store/jet/jet_text.h"
#include "store/jet/jet_values.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 kCataloguePage = 2;
constexpr quint32 kPageOfId = 0x00FFFFFF;
constexpr qint32 kTableType = 1;
constexpr quint32 kSystemOrHidden = 0x80000002;

const JetColumn& Require(const JetTable& catalogue, QStringView name, bool number) {
    const JetColumn* column = catalogue.Find(name);
    if (column == nullptr || (number ? !IsNumber(column->type) : column->type != JetType::Text)) {
        throw JetDamageError(u"表の一覧"_s);
    }
    return *column;
}

}  // namespace

JetFile::JetFile(QByteArray file) : m_pages(std::move(file)) {
    ReadCatalogue();
}

void JetFile::ReadCatalogue() {
    const JetTable catalogue(m_pages, kCataloguePage);
    const JetColumn& id = Require(catalogue, u"Id", true);
    const JetColumn& type = Require(catalogue, u"Type", true);
    const JetColumn& flags = Require(catalogue, u"Flags", true);
    const JetColumn& name = Require(catalogue, u"Name", false);
    const JetText text(m_pages, name.codePage);
    const auto number = [](const JetRow& row, const JetColumn& column) {
        const auto field = row.Field(column);
        return field ? JetInteger(column.type, *field) : 0;
    };
    catalogue.ForEachRow([&](const JetRow& row) {
        const auto nameField = row.Field(name);
        const bool shown = (static_cast<quint32>(number(row, flags)) & kSystemOrHidden) == 0;
        if (nameField && shown && number(row, type) == kTableType) {
            const quint32 page = static_cast<quint32>(number(row, id)) & kPageOfId;
            m_tables.append({.name = text.Decode(*nameField), .page = page});
        }
    });
}

JetTable JetFile::Table(QStringView name) const {
    const auto found = std::find_if(m_tables.begin(), m_tables.end(), [&](const Entry& entry) {
        return entry.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    if (found == m_tables.end()) {
        throw JetError(u"表「%1」がありません。"_s.arg(name));
    }
    return JetTable(m_pages, found->page);
}

}  // namespace tickwell::store
