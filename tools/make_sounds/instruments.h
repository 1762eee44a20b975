// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

#include "make_sounds/signal.h"

namespace tickwell {

/// A piezo beeper: a square tone rounded off, without a click at its ends. `pitch` in Hz.
Signal Beep(double pitch, double seconds);

/// A small wooden pipe on a bellows: an odd, hollow tone with the hiss of its own air. `pitch` in Hz.
Signal StoppedPipe(double pitch, double seconds, Noise& air);

/// A little wooden door that knocks against its frame.
Signal DoorClick(Noise& noise);

/// One of the tones that struck metal rings with.
struct Partial {
    double ratio;         ///< its pitch against the deepest one
    double level;         ///< against the others
    double decaySeconds;  ///< until it has fallen to 1/e
};

/// A piece of metal and the hammer that strikes it.
struct Gong {
    double pitch = 0;  ///< of the deepest partial, Hz
    std::vector<Partial> partials;
    double hammerPitch = 0;   ///< Hz: the smaller and harder, the higher
    double hammerLevel = 0;   ///< against the partials
    std::uint32_t noise = 1;  ///< seed, not 0
};

Signal Struck(const Gong& gong, double seconds);

/// A hollow of the mouth or throat that rings.
struct Formant {
    double centre;     ///< Hz
    double bandwidth;  ///< Hz
    double level;      ///< against the other formants
};

using Formants = std::array<Formant, 4>;

/// Somebody who utters one sound. The functions are asked with the time in seconds from its beginning.
struct Voice {
    std::function<double(double)> pitch;     ///< Hz
    std::function<double(double)> loudness;  ///< 0 to 1
    std::function<Formants(double)> vowel;
    double breath = 0;        ///< how much air hisses along, 0: none
    std::uint32_t noise = 1;  ///< seed, not 0
};

Signal Uttered(const Voice& voice, double seconds);

}  // namespace tickwell
