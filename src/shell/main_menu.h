// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QActionGroup>
#include <QHash>

#include "core/display.h"
#include "displays/function_marks.h"
#include "shell/item_menu.h"

namespace tickwell::shell {

/// The menu of the main window, with an item for each display, and the submenu of the tools.
class MainMenu : public ItemMenu, public displays::FunctionMarks {
    Q_OBJECT

public:
    /// `handlers` outlives the menu. `chosen` is called with ChangeFunction and the number of a display, or
    /// with StartTool and the index of a tool.
    MainMenu(const Displays& displays, Handlers& handlers, const MenuChosen& chosen, QWidget* parent);

    void CheckFunction(qint32 number) override;
    void EnableOperation(bool enabled) override;

    /// Shows only the items of these tools; without any, hides the submenu as well.
    void ShowTools(const QList<int>& indexes);

private:
    void MakeFunctionsExclusive(const Displays& displays);

    QHash<qint32, QAction*> m_functionItems;  // owned by the menu, like all items
    ItemMenu* m_tools;
};

}  // namespace tickwell::shell
