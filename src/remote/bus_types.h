// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVariant>

namespace tickwell::remote {

// Values on the bus for which QVariant has no type of its own.

/// The path of an object.
struct ObjectPath {
    QString path;

    bool operator==(const ObjectPath&) const = default;
};

/// A value of any type, which is sent together with its type.
struct BoxedValue {
    QVariant value;

    bool operator==(const BoxedValue&) const = default;
};

}  // namespace tickwell::remote

Q_DECLARE_METATYPE(tickwell::remote::ObjectPath)
Q_DECLARE_METATYPE(tickwell::remote::BoxedValue)
