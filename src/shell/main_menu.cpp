// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/main_menu.h"

namespace tickwell::shell {

using namespace Qt::StringLiterals;

namespace {

/// The submenu of all tools, each with its index in its name.
class ToolsMenu : public ItemMenu {
public:
    ToolsMenu(Handlers& handlers, const MenuChosen& chosen, QWidget* parent)
        : ItemMenu(u"MenuTool", {}, handlers, chosen, parent) {
        for (int index = 1; index <= static_cast<int>(kTools.size()); ++index) {
            const QString name = u"MenuTool(%1)"_s.arg(index);
            Add({.name = name,
                 .caption = kTools[static_cast<std::size_t>(index - 1)].caption,
                 .command = MenuCommand::StartTool,
                 .number = index});
        }
    }
};

/// The menu with the items of these displays.
std::vector<MenuItem> ItemsWith(const Displays& displays) {
    std::vector<MenuItem> items;
    for (const MenuItem& item : kMenuItems) {
        if (item.command != MenuCommand::ChangeFunction) {
            items.push_back(item);
            continue;
        }
        for (const auto& display : displays) {
            const DisplayTraits& traits = display->Traits();
            items.push_back({.name = traits.menuItem,
                             .caption = traits.caption,
                             .command = MenuCommand::ChangeFunction,
                             .number = traits.number});
        }
    }
    return items;
}

}  // namespace

MainMenu::MainMenu(const Displays& displays, Handlers& handlers, const MenuChosen& chosen, QWidget* parent)
    : ItemMenu(u"Menu", ItemsWith(displays), handlers, chosen, parent),
      m_tools(new ToolsMenu(handlers, chosen, this)) {
    setAccessibleName(u"メニュー"_s);
    m_tools->setAccessibleName(Item(MenuCommand::Tools)->text());
    Item(MenuCommand::Tools)->setMenu(m_tools);
    MakeFunctionsExclusive(displays);
    ShowTools({});
}

/// At most one function is checked. The mark is a bullet, not a tick.
void MainMenu::MakeFunctionsExclusive(const Displays& displays) {
    auto* functions = new QActionGroup(this);
    functions->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    for (const auto& display : displays) {
        QAction* action = Item(MenuCommand::ChangeFunction, display->Traits().number);
        action->setCheckable(true);
        functions->addAction(action);
        m_functionItems.insert(display->Traits().number, action);
    }
}

void MainMenu::CheckFunction(qint32 number) {
    for (auto item = m_functionItems.begin(); item != m_functionItems.end(); ++item) {
        item.value()->setChecked(item.key() == number);
    }
}

void MainMenu::EnableOperation(bool enabled) {
    Item(MenuCommand::ShowOperation)->setEnabled(enabled);
}

void MainMenu::ShowTools(const QList<int>& indexes) {
    int index = 0;
    for (QAction* item : m_tools->actions()) {
        item->setVisible(indexes.contains(++index));
    }
    Item(MenuCommand::Tools)->setVisible(!indexes.isEmpty());
}

}  // namespace tickwell::shell
