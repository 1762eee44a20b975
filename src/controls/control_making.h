// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QPushButton>
#include <functional>

#include "core/handlers.h"

namespace tickwell::controls {

/// Sets a control's name, and the name that a screen reader says if the control shows no text.
template <typename Control>
Control* Named(Control* control, const QString& name, const QString& spoken = {}) {
    control->setObjectName(name);
    if (!spoken.isEmpty()) {
        control->setAccessibleName(spoken);
    }
    return control;
}

/// The name of a control in an array of controls: "Option1(2)".
QString Indexed(const QString& name, int index);

/// Makes a label that shows its text as it is, never as rich text. The caller or a layout gives it an owner.
QLabel* MakeLabel(const QString& name, const QString& text = {}, QWidget* parent = nullptr);

/// Adds an invisible label, for screen readers, to a field without a visible one: some of them take the name
/// of a combo box only from its label. The window owns it.
void LabelForReaders(QWidget& field, const QString& text);

/// Makes a push button that `window` owns. A click runs `clicked` under `handlers`, which outlive the button;
/// the report box of an error belongs to `window`.
QPushButton* MakeButton(const QString& name, const QString& caption, QWidget* window, Handlers& handlers,
                        std::function<void()> clicked);

}  // namespace tickwell::controls
