// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace tickwell::controls {

/// Makes the Tab key follow the layouts of `parent`, that is, the eye, and not the order in which its
/// controls were created. All controls must be in their layouts.
void TabInLayoutOrder(const QWidget& parent);

}  // namespace tickwell::controls
