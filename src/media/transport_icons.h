// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>

namespace tickwell {

/// The sign on one of the player's buttons, by its index (see cd_controls.h). Drawn in the colour that
/// buttons are written in, whatever the palette, and sharp at every size.
QIcon TransportIcon(int index);

}  // namespace tickwell
