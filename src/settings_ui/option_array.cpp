// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/option_array.h"

#include <algorithm>

#include "controls/access_keys.h"
#include "controls/control_making.h"

namespace tickwell::settings_ui {

using namespace Qt::StringLiterals;

namespace {

/// Lets Tab reach only the checked button, or all buttons if none is checked. Qt does this only once a button
/// of the group has had the focus; before that, Tab would reach the first button, from which the arrow keys
/// do not choose.
void TakeTab(const QButtonGroup& group) {
    const QList<QAbstractButton*> buttons = group.buttons();
    const bool isAnyOn = std::any_of(buttons.begin(), buttons.end(),
                                     [](const QAbstractButton* button) { return button->isChecked(); });
    for (QAbstractButton* button : buttons) {
        button->setFocusPolicy(button->isChecked() || !isAnyOn ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

}  // namespace

OptionArray::OptionArray(const QString& name, std::span<const OptionRow> rows, QWidget* parent,
                         Handlers& handlers, const std::function<void(qint32 index)>& onClick)
    : m_group(new QButtonGroup(parent)) {
    for (const OptionRow& row : rows) {
        auto* button = controls::Named(new QRadioButton(row.caption.toString(), parent),
                                       controls::Indexed(name, row.index));
        m_group->addButton(button, row.index);
        m_buttons.append(button);
        handlers.Connect(button, &QRadioButton::clicked, parent,
                         [onClick, index = row.index] { onClick(index); });
    }
    QObject::connect(m_group, &QButtonGroup::buttonToggled, m_group, [group = m_group] { TakeTab(*group); });
}

void OptionArray::Select(qint32 index) {
    m_group->setExclusive(m_group->button(index) != nullptr);  // exclusive groups keep one button checked
    for (QAbstractButton* button : m_buttons) {
        button->setChecked(m_group->id(button) == index);
    }
    m_group->setExclusive(true);
}

void OptionArray::SetCaption(qint32 index, const QString& caption) {
    controls::SetCaption(*m_group->button(index), caption);
}

void OptionArray::SetEnabled(bool enabled) {
    for (QAbstractButton* button : m_buttons) {
        button->setEnabled(enabled);
    }
}

}  // namespace tickwell::settings_ui
