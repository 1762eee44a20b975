// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QList>
#include <functional>
#include <optional>

#include "days/listed_rows.h"
#include "store/row_search.h"

namespace tickwell::days {

/// The list in the calendar's side panel, without a window: its rows, the two captions above it, and the row
/// that the editor works on. The calendar owns it and lists the selected day in it; the search puts its
/// results into it; editor and deletion read from it.
class DayList {
public:
    const ListedRows& Rows() const { return m_rows; }

    /// What is listed, for the caption above the list.
    const QString& Heading() const { return m_heading; }

    /// The number of rows, for the caption beside it.
    const QString& CountText() const { return m_countText; }

    /// Called after each change of rows or captions; there is one listener. The selection in a window is then
    /// lost.
    void WhenChanged(std::function<void()> changed) { m_changed = std::move(changed); }

    /// Lists the anniversaries that fall on `date`. If the panel is closed, the rows are removed and the
    /// captions are kept. With a large database the list may still be empty on return: see IsListing.
    /// `database` outlives the list. Throws RunTimeError; the rows are then removed as well.
    void ListDay(store::DayDatabase& database, QDate date, bool isPanelOpen);

    /// The rows of the day are still being searched: GoOn must be called until this is false. Listing
    /// anything else cancels the search.
    bool IsListing() const { return m_listing.has_value(); }

    /// Searches for some milliseconds. Throws RunTimeError, which ends the listing.
    void GoOn();

    /// Shows the results of a search in `searched` entries.
    void ListFound(ListedRows rows, int searched);

    /// The row to edit, counted from 1; 0 means that a new one is added. The number is kept until the next
    /// calendar window opens, regardless of what is listed in the meantime, and can therefore exceed the
    /// length of the list.
    int SelectedRow() const { return m_selectedRow; }

    /// "編集": `index`, counted from 0, is the row selected in the window. Without one the number is kept, so
    /// that the first edit without a selection adds a row.
    void ChooseRow(std::optional<int> index);

    /// "追加".
    void ChooseNewRow() { m_selectedRow = 0; }

    /// The chosen row; nullopt if a new one is added. Throws RunTimeError if the row no longer exists in the
    /// list.
    std::optional<DayListRow> ChosenRow() const;

private:
    /// The search for a day's rows that takes more than one slice.
    struct Listing {
        store::DayDatabase* database = nullptr;
        QDate date;
        store::RowSearch search;
        store::ChangeMark mark;
    };

    void ShowDay(Listing& listing);
    void Show(ListedRows rows);
    void Changed() const;

    ListedRows m_rows;
    std::optional<Listing> m_listing;
    QString m_heading = QStringLiteral("記念日");
    QString m_countText = QStringLiteral("ﾃﾞｰﾀ件数 0件");
    int m_selectedRow = 0;
    std::function<void()> m_changed;
};

}  // namespace tickwell::days
