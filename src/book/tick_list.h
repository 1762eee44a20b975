// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QListView>

namespace tickwell {

/// A list in which any number of entries can be ticked.
class TickList : public QListView {
    Q_OBJECT

public:
    explicit TickList(QWidget* parent = nullptr);

protected:
    /// QListView makes an index of each entry that was ticked or unticked, only to tell a screen reader of
    /// the first: for a million entries that takes a second. It is spared from long ranges.
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
};

}  // namespace tickwell
