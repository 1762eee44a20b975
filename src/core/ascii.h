// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QChar>

namespace tickwell {

/// 0 to 9; QChar::isDigit accepts the digits of every script.
inline bool IsAsciiDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

}  // namespace tickwell
