// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <optional>

#include "days/day_list_row.h"
#include "store/day_database.h"

namespace tickwell::days {

/// Rows of Kinenbi that are displayed in the same form.
struct ListedPart {
    store::FoundRows rows;
    RowForm form = RowForm::OfDay;
};

/// The rows of the day list. A short list keeps its rows; of a long one only the keys are kept, and each row
/// is read when it is needed. Copies share their memory.
class ListedRows {
public:
    ListedRows() = default;
    // Not explicit: a list of rows converts to ListedRows.
    ListedRows(QList<DayListRow> rows) : m_count(static_cast<int>(rows.size())), m_kept(std::move(rows)) {}

    /// The parts in order. Reads the rows if they are few. `database` outlives the rows. Throws RunTimeError.
    ListedRows(store::DayDatabase& database, QList<ListedPart> parts);

    int Count() const { return m_count; }

    /// `row`: 0 to Count() - 1. nullopt if another program changed or deleted the row since. Throws
    /// RunTimeError.
    std::optional<DayListRow> Read(int row) const;

    /// All rows if they are few, otherwise none.
    const QList<DayListRow>& Kept() const { return m_kept; }

private:
    int m_count = 0;
    QList<DayListRow> m_kept;
    store::DayDatabase* m_database = nullptr;  // null if all rows were given
    QList<ListedPart> m_parts;                 // empty if the rows are kept
};

}  // namespace tickwell::days
