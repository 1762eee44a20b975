// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSpinBox>

namespace tickwell::controls {

/// A spin box whose text field has a name of its own; Qt gives only subclasses access to that field.
class NumberBox : public QSpinBox {
    Q_OBJECT

public:
    /// `textName`: object name of the text field.
    NumberBox(const QString& name, const QString& textName, QWidget* parent);
};

}  // namespace tickwell::controls
