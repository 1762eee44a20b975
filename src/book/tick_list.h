// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QListView>

namespace tickwell::book {

/// A list in which any number of entries can be ticked.
class TickList : public QListView {
    Q_OBJECT

public:
    explicit TickList(QWidget* parent = nullptr);

protected:
    /// QListView creates an index for each entry that was ticked or unticked, only to report the first one to
    /// a screen reader: for a million entries that takes a second. This override skips it for long ranges.
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
};

}  // namespace tickwell::book
