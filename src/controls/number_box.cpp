// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/number_box.h"

#include <QLineEdit>

namespace tickwell::controls {

NumberBox::NumberBox(const QString& name, const QString& textName, QWidget* parent) : QSpinBox(parent) {
    setObjectName(name);
    lineEdit()->setObjectName(textName);
}

}  // namespace tickwell::controls
