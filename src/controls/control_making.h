// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QWidget>

namespace tickwell {

/// Gives a control its name, and the one that a screen reader says where the control shows no text of its
/// own.
template <typename Control>
Control* Named(Control* control, const QString& name, const QString& spoken = {}) {
    control->setObjectName(name);
    if (!spoken.isEmpty()) {
        control->setAccessibleName(spoken);
    }
    return control;
}

}  // namespace tickwell
