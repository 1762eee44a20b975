// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string_view>

#include "make_sounds/signal.h"

namespace tickwell {

/// Twelve short beeps in three groups, 2.4 s in total.
Signal TimerNotice();

/// The door, two calls, and the door again.
Signal CuckooClock();

/// Two cries with a breath in between.
Signal BabyCry();

/// A small bell, like that of a mantel clock.
Signal HighStrike();

/// A long coiled wire, like that of a wall clock.
Signal LowStrike();

/// A man shouting "yo!".
Signal Shout();

/// A wave file that the program plays.
struct Sound {
    std::string_view fileName;
    Signal (*make)();
    double peak;  ///< level of the loudest sample, relative to full scale
};

/// Noon plays one of TKW01 to TKW05 twelve times, and a chime is cut off after 30 s, so none of these is
/// longer than 2.3 s.
inline constexpr std::array<Sound, 6> kSounds = {{
    {"TKW00.wav", TimerNotice, 0.6},
    {"TKW01.wav", CuckooClock, 0.75},
    {"TKW02.wav", BabyCry, 0.75},
    {"TKW03.wav", HighStrike, 0.7},
    {"TKW04.wav", LowStrike, 0.8},
    {"TKW05.wav", Shout, 0.8},
}};

}  // namespace tickwell
