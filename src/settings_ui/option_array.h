// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QButtonGroup>
#include <QRadioButton>
#include <functional>
#include <span>

#include "core/handlers.h"
#include "settings_ui/option_tables.h"

namespace tickwell {

/// Option buttons of which at most one is on. Tab goes to that one, and the arrow keys choose. Each bears its
/// index in its name: "Option3(2)".
class OptionArray {
public:
    /// Makes the buttons in the order of the rows; `parent` owns them. `onClick` is called with the index of
    /// a button that the user chose. Handlers outlive the buttons.
    OptionArray(const QString& name, std::span<const OptionRow> rows, QWidget* parent, Handlers& handlers,
                const std::function<void(qint32 index)>& onClick);

    /// Turns one on without calling `onClick`; a number that is no index turns all off.
    void Select(qint32 index);
    void SetCaption(qint32 index, const QString& caption) { m_group->button(index)->setText(caption); }
    void SetEnabled(bool enabled);

    /// In the order of the screen.
    QList<QAbstractButton*> Buttons() const { return m_buttons; }

private:
    QButtonGroup* m_group;  // owned by the parent
    QList<QAbstractButton*> m_buttons;
};

}  // namespace tickwell
