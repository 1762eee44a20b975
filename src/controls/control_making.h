// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QWidget>

namespace tickwell {

/// Sets a control's name, and the name that a screen reader says if the control shows no text.
template <typename Control>
Control* Named(Control* control, const QString& name, const QString& spoken = {}) {
    control->setObjectName(name);
    if (!spoken.isEmpty()) {
        control->setAccessibleName(spoken);
    }
    return control;
}

}  // namespace tickwell
