// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QList>
#include <functional>
#include <optional>

#include "days/listed_rows.h"
#include "store/row_search.h"

namespace tickwell {

/// The list in the calendar's side panel, without a window: its rows, the two captions above it, and which
/// row the editor is to work on. The calendar owns it and lists the selected day in it; the search puts its
/// finds into it; editor and deletion read from it.
class DayList {
public:
    const ListedRows& Rows() const { return m_rows; }

    /// Caption Label2: whose anniversaries these are.
    const QString& Heading() const { return m_heading; }

    /// Caption Label3: how many they are.
    const QString& CountText() const { return m_countText; }

    /// Called after each change of rows or captions; one at most. In a window the selection is then gone.
    void WhenChanged(std::function<void()> changed) { m_changed = std::move(changed); }

    /// Lists the anniversaries that fall on `date`. With the panel closed the rows are taken away, and the
    /// captions stay. In a large database the list may still be empty afterwards: see IsListing. Throws
    /// RunTimeError; the rows are then gone as well.
    void ListDay(DayDatabaseAccess database, QDate date, bool isPanelOpen);

    /// The rows of the day are still being looked for: GoOn is to be called until they are there. Whatever
    /// else is listed ends it.
    bool IsListing() const { return m_listing.has_value(); }

    /// Looks for them for some milliseconds. Throws RunTimeError; the listing is then over.
    void GoOn();

    /// Shows what a search found among `searched` entries.
    void ListFound(ListedRows rows, int searched);

    /// The row to edit, counted from 1; 0 means that a new one is to be added. It is kept from one editing to
    /// the next until another calendar window opens, whatever is listed in between, and can therefore be
    /// larger than the list is long.
    int SelectedRow() const { return m_selectedRow; }

    /// "編集": `index`, counted from 0, is the row selected in the window. Without one the number stays, so
    /// that the first editing without a selection adds.
    void ChooseRow(std::optional<int> index);

    /// "追加".
    void ChooseNewRow() { m_selectedRow = 0; }

    /// The chosen row; nothing when one is to be added. Throws RunTimeError when the list has become shorter.
    std::optional<DayListRow> ChosenRow() const;

private:
    /// The look-up of a day that takes more than one slice.
    struct Listing {
        DayDatabaseAccess database;
        QDate date;
        RowSearch search;
        ChangeMark mark;
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

}  // namespace tickwell
