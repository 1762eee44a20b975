// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAction>
#include <QMenu>
#include <functional>
#include <span>
#include <vector>

#include "core/handlers.h"
#include "shell/menu_items.h"

namespace tickwell::shell {

/// Called with the command and the number of the chosen MenuItem.
using MenuChosen = std::function<void(MenuCommand command, qint32 number)>;

/// A menu made from a list of items. Choosing an item only calls a function of its owner.
class ItemMenu : public QMenu {
    Q_OBJECT

public:
    /// `handlers` outlives the menu.
    ItemMenu(QStringView name, std::span<const MenuItem> items, Handlers& handlers, MenuChosen chosen,
             QWidget* parent);

    /// The first item with this command, owned by the menu. The command must be in the list.
    QAction* Item(MenuCommand command) const;

    /// The item of this command with this number; null if there is none.
    QAction* Item(MenuCommand command, qint32 number) const;

protected:
    /// Adds an item at the end.
    QAction* Add(const MenuItem& item);

private:
    struct Entry {
        MenuCommand command;
        qint32 number;
        QAction* action;  // owned by the menu
    };

    Handlers& m_handlers;
    MenuChosen m_chosen;
    std::vector<Entry> m_entries;  // in the order of the menu
};

}  // namespace tickwell::shell
