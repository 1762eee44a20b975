// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QWidget>

#include "support/child.h"

namespace tickwell {

/// The names of all top-level windows, shown or hidden, in alphabetical order, for the message of a failed
/// test.
inline QString AllWindows() {
    QStringList names;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        names.append(NameOf(window->metaObject()->className(), window->objectName()));
    }
    names.sort();
    return names.join(QStringLiteral(", "));
}

/// The program's window of that object name, shown or hidden. If there is none, the test program ends with a
/// message that lists the windows there are.
inline QWidget& WindowNamed(const QString& name) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == name) {
            return *window;
        }
    }
    qFatal("no window \"%s\"; there are: %s", qPrintable(name), qPrintable(AllWindows()));
}

/// The program's first window of that class, shown or hidden; null if there is none.
template <typename Window>
Window* FindWindow() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* window = qobject_cast<Window*>(widget)) {
            return window;
        }
    }
    return nullptr;
}

/// The same window, which must exist; otherwise ends the test program as WindowNamed does.
template <typename Window>
Window& WindowOf() {
    auto* window = FindWindow<Window>();
    if (window == nullptr) {
        qFatal("no %s; there are: %s", Window::staticMetaObject.className(), qPrintable(AllWindows()));
    }
    return *window;
}

}  // namespace tickwell
