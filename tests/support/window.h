// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QWidget>

#include "support/child.h"

namespace tickwell {

/// The program's window of that object name, shown or hidden. If there is none, the test program ends with a
/// message that lists the windows there are.
inline QWidget& WindowNamed(const QString& name) {
    QStringList names;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == name) {
            return *window;
        }
        names.append(NameOf(window->metaObject()->className(), window->objectName()));
    }
    names.sort();
    qFatal("no window \"%s\"; there are: %s", qPrintable(name), qPrintable(names.join(QStringLiteral(", "))));
}

}  // namespace tickwell
