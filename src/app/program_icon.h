// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>

namespace tickwell::app {

/// The program's icon in its drawn sizes from 16 to 256 pixels, up to `largest`.
QIcon ProgramIcon(int largest = 256);

}  // namespace tickwell::app
