// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <array>

namespace tickwell {

/// The player's buttons, by their index.
inline constexpr int kCdPrevious = 0;
inline constexpr int kCdRewind = 1;
inline constexpr int kCdPlay = 2;
inline constexpr int kCdPause = 3;
inline constexpr int kCdStop = 4;
inline constexpr int kCdForward = 5;
inline constexpr int kCdNext = 6;

using CdButtons = std::array<bool, 7>;  ///< which of them can be pressed

/// What the player's window shows of it.
struct CdControls {
    CdButtons buttons{};
    bool menus = true;  ///< cdtm and cdtm1 can be opened
    QString caption;    ///< the state in a word

    bool operator==(const CdControls&) const = default;
};

/// The buttons that can be pressed in a state; nothing where the state leaves them as they are.
const CdButtons* CdButtonsOf(qint32 state);

}  // namespace tickwell
