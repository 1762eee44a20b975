// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <array>

namespace tickwell::media {

/// Indexes of the player's buttons.
inline constexpr int kCdPrevious = 0;
inline constexpr int kCdRewind = 1;
inline constexpr int kCdPlay = 2;
inline constexpr int kCdPause = 3;
inline constexpr int kCdStop = 4;
inline constexpr int kCdForward = 5;
inline constexpr int kCdNext = 6;

using CdButtons = std::array<bool, 7>;  ///< which buttons are enabled

/// What the player's window shows.
struct CdControls {
    CdButtons buttons{};
    bool menus = true;  ///< cdtm and cdtm1 are enabled
    QString caption;    ///< name of the state

    bool operator==(const CdControls&) const = default;
};

/// The buttons that are enabled in a state; null if the state leaves them unchanged.
const CdButtons* CdButtonsOf(qint32 state);

}  // namespace tickwell::media
