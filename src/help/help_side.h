// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>
#include <QListWidget>
#include <QTabWidget>
#include <QTreeWidget>

#include "core/handlers.h"
#include "help/help_page.h"

namespace tickwell {

/// Contents and index beside the text. A click or Enter on an entry says where it leads.
class HelpSide : public QTabWidget {
    Q_OBJECT

public:
    /// Handlers and page outlive it.
    HelpSide(Handlers& handlers, const HelpPage& page, QWidget* parent);

    /// Marks the heading that the reader is under; -1 marks none.
    void MarkHeading(int heading);

    /// Gives the keyboard to the list that is shown.
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

}  // namespace tickwell
