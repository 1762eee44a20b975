// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace tickwell {

/// Shows a window in front of the others and gives it the keys, also where it was minimized or covered.
void BringForward(QWidget& window);

}  // namespace tickwell
