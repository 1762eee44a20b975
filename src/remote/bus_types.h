// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVariant>

namespace tickwell::remote {

// D-Bus types that QVariant cannot represent.

/// A D-Bus object path.
struct ObjectPath {
    QString path;

    bool operator==(const ObjectPath&) const = default;
};

/// A D-Bus variant: a value that is sent together with its type.
struct BoxedValue {
    QVariant value;

    bool operator==(const BoxedValue&) const = default;
};

}  // namespace tickwell::remote

Q_DECLARE_METATYPE(tickwell::remote::ObjectPath)
Q_DECLARE_METATYPE(tickwell::remote::BoxedValue)
