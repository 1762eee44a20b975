// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/item_menu.h"

#include <algorithm>

namespace tickwell::shell {

ItemMenu::ItemMenu(QStringView name, std::span<const MenuItem> items, Handlers& handlers, MenuChosen chosen,
                   QWidget* parent)
    : QMenu(parent), m_handlers(handlers), m_chosen(std::move(chosen)) {
    setObjectName(name);
    for (const MenuItem& item : items) {
        Add(item);
    }
}

QAction* ItemMenu::Add(const MenuItem& item) {
    QAction* action = addAction(item.caption.toString());
    action->setObjectName(item.name);
    action->setSeparator(item.command == MenuCommand::Separator);
    m_entries.push_back({.command = item.command, .number = item.number, .action = action});
    m_handlers.Connect(action, &QAction::triggered, this,
                       [this, command = item.command, number = item.number] { m_chosen(command, number); });
    return action;
}

QAction* ItemMenu::Item(MenuCommand command) const {
    const auto entry = std::find_if(m_entries.begin(), m_entries.end(),
                                    [command](const Entry& each) { return each.command == command; });
    return entry == m_entries.end() ? nullptr : entry->action;
}

QAction* ItemMenu::Item(MenuCommand command, qint32 number) const {
    const auto entry = std::find_if(m_entries.begin(), m_entries.end(), [=](const Entry& each) {
        return each.command == command && each.number == number;
    });
    return entry == m_entries.end() ? nullptr : entry->action;
}

}  // namespace tickwell::shell
