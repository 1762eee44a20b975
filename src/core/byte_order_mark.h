// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>

namespace tickwell {

/// What editors may put at the beginning of a UTF-8 file.
inline constexpr QByteArrayView kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace tickwell
