// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QString>
#include <QWidget>

namespace tickwell {

/// Gives a control of the settings its name, and the one that a screen reader says where the control shows no
/// text of its own.
template <typename Control>
Control* NamedControl(Control* control, const QString& name, const QString& spoken = {}) {
    control->setObjectName(name);
    if (!spoken.isEmpty()) {
        control->setAccessibleName(spoken);
    }
    return control;
}

/// An explanation of several lines, as wide as its page leaves it.
inline QLabel* MakeExplanation(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

}  // namespace tickwell
