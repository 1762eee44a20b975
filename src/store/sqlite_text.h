// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace tickwell {

/// UTF-8 for the engine and back, with nothing lost on the way: half a surrogate pair, a byte order mark and
/// the noncharacters are kept, each as the three bytes of its code. Two different names so never become the
/// same.
QByteArray ToEngineText(QStringView text);

/// Bytes that are no such text give U+FFFD.
QString FromEngineText(QByteArrayView bytes);

}  // namespace tickwell
