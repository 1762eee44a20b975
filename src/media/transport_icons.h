// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>

namespace tickwell::media {

/// The symbol on one of the player's buttons, by its index (see cd_controls.h). Drawn in the palette's colour
/// for button text and sharp at every size.
QIcon TransportIcon(int index);

}  // namespace tickwell::media
