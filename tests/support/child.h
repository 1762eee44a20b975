// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QStringList>

namespace tickwell {

/// An object as a message names it: its class, and its object name if it has one.
inline QString NameOf(const char* type, const QString& name) {
    const QString shownType = QString::fromLatin1(type);
    return name.isEmpty() ? shownType : shownType + QStringLiteral(" \"%1\"").arg(name);
}

/// The message for a missing child: what was looked for, and all direct and indirect children in alphabetical
/// order. Without it, a renamed control would only cause a crash.
inline QString MissingChild(const QObject& parent, const char* type, const QString& name) {
    QStringList children;
    for (const QObject* child : parent.findChildren<QObject*>()) {
        children.append(NameOf(child->metaObject()->className(), child->objectName()));
    }
    children.sort();
    return QStringLiteral("%1 has no child %2; it has %3")
        .arg(NameOf(parent.metaObject()->className(), parent.objectName()), NameOf(type, name),
             children.isEmpty() ? QStringLiteral("no children") : children.join(QStringLiteral(", ")));
}

/// The direct or indirect child of that type and object name; without a name, the first one of the type. The
/// parent owns it. If there is none, the test program ends with MissingChild's message by qFatal, for which
/// QTest prints the test function and the call stack.
template <typename Child>
Child& ChildOf(const QObject& parent, const QString& name = QString()) {
    auto* child = name.isEmpty() ? parent.findChild<Child*>() : parent.findChild<Child*>(name);
    if (child == nullptr) {
        qFatal("%s", qPrintable(MissingChild(parent, Child::staticMetaObject.className(), name)));
    }
    return *child;
}

}  // namespace tickwell
