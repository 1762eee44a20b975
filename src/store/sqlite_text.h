// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace tickwell::store {

/// Lossless conversion to UTF-8 for SQLite and back: unpaired surrogates, byte order marks and noncharacters
/// are kept, each as the three bytes of its code point. So two different names never become equal.
QByteArray ToSqliteText(QStringView text);

/// Invalid bytes become U+FFFD.
QString FromSqliteText(QByteArrayView bytes);

}  // namespace tickwell::store
