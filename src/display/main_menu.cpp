// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/main_menu.h"

namespace tickwell {

using namespace Qt::StringLiterals;

MainMenu::MainMenu(Handlers& handlers, Chosen chosen, QWidget* parent)
    : QMenu(parent), m_chosen(std::move(chosen)), m_functions(new QActionGroup(this)) {
    setObjectName(u"Menu"_s);
    setAccessibleName(u"メニュー"_s);
    // One function at a time, or none; the mark is a bullet and not a tick.
    m_functions->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    for (const MenuItem& item : kMenuItems) {
        addAction(Make(item, handlers));
    }
}

QAction* MainMenu::Make(const MenuItem& item, Handlers& handlers) {
    auto* action = new QAction(item.caption.toString(), this);
    action->setObjectName(item.name);
    action->setSeparator(item.command == MenuCommand::Separator);
    handlers.Connect(action, &QAction::triggered, this, [this, &item] { m_chosen(item); });
    if (item.command == MenuCommand::ChangeFunction) {
        action->setCheckable(true);
        action->setEnabled(FunctionRowOf(item.function)->isBuilt);
        m_functions->addAction(action);
        m_functionItems.insert(item.function, action);
    } else if (item.command == MenuCommand::ShowOperation) {
        m_operationItem = action;
    }
    return action;
}

void MainMenu::CheckFunction(qint32 number) {
    for (auto item = m_functionItems.begin(); item != m_functionItems.end(); ++item) {
        item.value()->setChecked(item.key() == number);
    }
}

void MainMenu::EnableOperation(bool enabled) {
    m_operationItem->setEnabled(enabled);
}

}  // namespace tickwell
