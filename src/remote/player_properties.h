// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVariantMap>

#include "remote/bus_types.h"
#include "remote/player_picture.h"

namespace tickwell::remote {

/// The properties of the interface kApplicationInterface, which never change.
QVariantMap ApplicationProperties();

/// The properties of the interface kPlayerInterface. `position`: µs.
QVariantMap PlayerProperties(const PlayerPicture& picture, qint64 position);

/// The properties that listeners have to be told when one picture follows another. The position is never
/// among them, because it changes all the time.
QVariantMap ChangedProperties(const PlayerPicture& before, const PlayerPicture& now);

/// The name of the current track: no track of any other disc has it. Only if there is a current track.
ObjectPath TrackPath(const PlayerPicture& picture);

/// The rate and the volume of the player, which cannot be changed.
inline constexpr double kOnlyRate = 1;
inline constexpr double kOnlyVolume = 1;

}  // namespace tickwell::remote
