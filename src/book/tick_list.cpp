// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/tick_list.h"

#include <algorithm>

namespace tickwell::book {

namespace {

constexpr int kLongRange = 1000;  // entries

bool IsLong(const QItemSelection& selection) {
    return std::any_of(selection.begin(), selection.end(),
                       [](const QItemSelectionRange& range) { return range.height() > kLongRange; });
}

}  // namespace

TickList::TickList(QWidget* parent) : QListView(parent) {
    setSelectionMode(MultiSelection);
    setEditTriggers(NoEditTriggers);
    setUniformItemSizes(true);  // otherwise all names are read and measured before the first is shown
}

void TickList::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    if (IsLong(selected) || IsLong(deselected)) {
        QAbstractItemView::selectionChanged(selected, deselected);
    } else {
        QListView::selectionChanged(selected, deselected);
    }
}

}  // namespace tickwell::book
