// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <thread>

#include "book/anniversary_deletion.h"
#include "book/anniversary_search.h"

namespace tickwell::book {

/// Runs the work to its end; returns the number of slices.
inline int DoWhole(SlicedWork& work) {
    int slices = 1;
    while (!work.Step()) {
        ++slices;
        std::this_thread::yield();
    }
    return slices;
}

inline SearchFinds FindAnniversaries(store::DayDatabase& database, const SearchConditions& conditions) {
    AnniversarySearch search(database, conditions);
    DoWhole(search);
    return search.TakeFinds();
}

inline void DeleteTicked(store::DayDatabase& database, const days::ListedRows& rows,
                         const std::vector<bool>& isTicked, const Corrections& corrections = {}) {
    DoWhole(*DeletionOf(database, rows, isTicked, corrections));
}

/// Reads all rows, including those that the list does not keep in memory.
inline QList<days::DayListRow> AllOf(const days::ListedRows& rows) {
    QList<days::DayListRow> all;
    for (int row = 0; row < rows.Count(); ++row) {
        all.append(*rows.Read(row));
    }
    return all;
}

}  // namespace tickwell::book
