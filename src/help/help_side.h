// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>
#include <QListWidget>
#include <QTabWidget>
#include <QTreeWidget>

#include "core/handlers.h"
#include "help/help_page.h"

namespace tickwell::help {

/// Contents and index beside the text. Emits the target position when an entry is clicked or Enter is
/// pressed.
class HelpSide : public QTabWidget {
    Q_OBJECT

public:
    /// Handlers outlive this object. `page` is only read in the constructor.
    HelpSide(Handlers& handlers, const HelpPage& page, QWidget* parent);

    /// Selects the reader's current heading; -1 selects none.
    void MarkHeading(int heading);

    /// Moves the keyboard focus to the list that is shown.
    void TakeFocus();

Q_SIGNALS:
    void Chosen(int position);

private:
    QWidget* MakeContents(const HelpPage& page);
    QWidget* MakeIndex(const HelpPage& page);
    void FilterIndex();

    Handlers& m_handlers;
    QTreeWidget* m_contents;
    QList<QTreeWidgetItem*> m_headings;  // owned by the tree
    QLineEdit* m_filter;
    QListWidget* m_index;
};

}  // namespace tickwell::help
