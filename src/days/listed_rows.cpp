// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/listed_rows.h"

namespace tickwell::days {

namespace {

constexpr int kMostKept = 1000;

std::optional<DayListRow> ReadAs(RowForm form, const store::FoundRow& found, store::DayDatabase& database) {
    const std::optional<store::ResultRow> row = database.ReadRow(u"Kinenbi", found);
    if (!row) {
        return std::nullopt;
    }
    DayListRow listed = DayListRowOf(*row, form);
    if (!IsNameable(*row)) {
        listed.itself = found;
    }
    return listed;
}

}  // namespace

ListedRows::ListedRows(store::DayDatabase& database, QList<ListedPart> parts)
    : m_database(&database), m_parts(std::move(parts)) {
    for (const ListedPart& part : m_parts) {
        m_count += static_cast<int>(part.rows.size());
    }
    if (m_count > kMostKept) {
        return;
    }
    for (int row = 0; row < m_count; ++row) {
        if (std::optional<DayListRow> read = Read(row)) {
            m_kept.append(std::move(*read));
        }
    }
    m_parts.clear();
    m_count = static_cast<int>(m_kept.size());
}

std::optional<DayListRow> ListedRows::Read(int row) const {
    Q_ASSERT(row >= 0 && row < m_count);
    if (m_parts.isEmpty()) {
        return m_kept.at(row);
    }
    qsizetype index = row;
    for (const ListedPart& part : m_parts) {
        if (index < part.rows.size()) {
            return ReadAs(part.form, part.rows.at(index), *m_database);
        }
        index -= part.rows.size();
    }
    Q_UNREACHABLE();
}

}  // namespace tickwell::days
