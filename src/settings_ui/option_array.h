// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QButtonGroup>
#include <QRadioButton>
#include <functional>
#include <span>

#include "core/handlers.h"
#include "settings_ui/option_tables.h"

namespace tickwell::settings_ui {

/// Option buttons of which at most one is checked. Tab moves the focus to that one, and the arrow keys choose
/// another. Each object name contains the index: "Option3(2)".
class OptionArray {
public:
    /// Creates the buttons in the order of the rows; `parent` owns them. `onClick` is called with the index
    /// of the button that the user has chosen. `handlers` outlives the buttons.
    OptionArray(const QString& name, std::span<const OptionRow> rows, QWidget* parent, Handlers& handlers,
                const std::function<void(qint32 index)>& onClick);

    /// Checks a button without calling `onClick`; an unknown index unchecks all.
    void Select(qint32 index);
    void SetCaption(qint32 index, const QString& caption);
    void SetEnabled(bool enabled);

    /// In screen order.
    QList<QAbstractButton*> Buttons() const { return m_buttons; }

private:
    QButtonGroup* m_group;  // owned by the parent
    QList<QAbstractButton*> m_buttons;
};

}  // namespace tickwell::settings_ui
