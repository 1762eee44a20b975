// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>

namespace tickwell {

/// The program's icon in the sizes that it was drawn for, 16 to 256 pixels, without those above `largest`.
QIcon ProgramIcon(int largest = 256);

}  // namespace tickwell
