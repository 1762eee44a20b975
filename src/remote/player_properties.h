// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVariantMap>

#include "remote/bus_types.h"
#include "remote/player_picture.h"

namespace tickwell::remote {

/// The properties of kApplicationInterface, which never change.
QVariantMap ApplicationProperties();

/// The properties of kPlayerInterface. `position`: µs.
QVariantMap PlayerProperties(const PlayerPicture& picture, qint64 position);

/// The properties to be announced when the state changes from `before` to `now`. The position is never among
/// them, because it changes all the time.
QVariantMap ChangedProperties(const PlayerPicture& before, const PlayerPicture& now);

/// The object path of the current track, unique across discs. Only if there is a current track.
ObjectPath TrackPath(const PlayerPicture& picture);

/// The fixed rate and volume of the player.
inline constexpr double kOnlyRate = 1;
inline constexpr double kOnlyVolume = 1;

}  // namespace tickwell::remote
