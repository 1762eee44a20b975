// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>

namespace tickwell {

/// The program's icon in the sizes that it was drawn for, 16 to 256 pixels: for windows, and for the
/// notification area.
QIcon ProgramIcon();

}  // namespace tickwell
