// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAction>
#include <QActionGroup>
#include <QHash>
#include <QMenu>
#include <functional>

#include "core/handlers.h"
#include "display/function_marks.h"
#include "display/menu_items.h"

namespace tickwell {

/// The menu of the main window. It knows its items and their marks; what choosing one does is its owner's.
class MainMenu : public QMenu, public FunctionMarks {
    Q_OBJECT

public:
    using Chosen = std::function<void(const MenuItem&)>;

    /// `handlers` outlives the menu.
    MainMenu(Handlers& handlers, Chosen chosen, QWidget* parent);

    void CheckFunction(qint32 number) override;
    void EnableOperation(bool enabled) override;

private:
    QAction* Make(const MenuItem& item, Handlers& handlers);

    Chosen m_chosen;
    QActionGroup* m_functions;  // owned by the menu, as the actions are
    QHash<qint32, QAction*> m_functionItems;
    QAction* m_operationItem = nullptr;
};

}  // namespace tickwell
