// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/option_array.h"

#include "controls/control_making.h"

namespace tickwell {

using namespace Qt::StringLiterals;

OptionArray::OptionArray(const QString& name, std::span<const OptionRow> rows, QWidget* parent,
                         Handlers& handlers, const std::function<void(qint32 index)>& onClick)
    : m_group(new QButtonGroup(parent)) {
    for (const OptionRow& row : rows) {
        auto* button = Named(new QRadioButton(row.caption.toString(), parent),
                             u"%1(%2)"_s.arg(name, QString::number(row.index)));
        m_group->addButton(button, row.index);
        m_buttons.append(button);
        handlers.Connect(button, &QRadioButton::clicked, parent,
                         [onClick, index = row.index] { onClick(index); });
    }
}

void OptionArray::Select(qint32 index) {
    m_group->setExclusive(m_group->button(index) != nullptr);  // else the last one could not be turned off
    for (QAbstractButton* button : m_buttons) {
        button->setChecked(m_group->id(button) == index);
    }
    m_group->setExclusive(true);
}

void OptionArray::SetEnabled(bool enabled) {
    for (QAbstractButton* button : m_buttons) {
        button->setEnabled(enabled);
    }
}

}  // namespace tickwell
