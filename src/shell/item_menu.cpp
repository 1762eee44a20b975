// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/item_menu.h"

#include <QVariant>

namespace tickwell {

namespace {

constexpr auto kCommand = "command";

}  // namespace

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
    action->setProperty(kCommand, static_cast<int>(item.command));
    m_handlers.Connect(action, &QAction::triggered, this,
                       [this, command = item.command, number = item.number] { m_chosen(command, number); });
    return action;
}

QAction* ItemMenu::Item(MenuCommand command) const {
    for (QAction* action : actions()) {
        if (action->property(kCommand).toInt() == static_cast<int>(command)) {
            return action;
        }
    }
    return nullptr;
}

}  // namespace tickwell
