// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

#include "make_sounds/signal.h"

namespace tickwell {

/// A piezo beeper: a rounded square wave without clicks at its ends. `pitch` in Hz.
Signal Beep(double pitch, double seconds);

/// A small stopped wooden pipe on a bellows: a hollow tone of odd harmonics with noise of the air. `pitch` in
/// Hz.
Signal StoppedPipe(double pitch, double seconds, Noise& air);

/// A small wooden door knocking against its frame.
Signal DoorClick(Noise& noise);

/// One of the tones of struck metal.
struct Partial {
    double ratio;         ///< pitch relative to the deepest partial
    double level;         ///< relative to the others
    double decaySeconds;  ///< until it has fallen to 1/e
};

/// A piece of metal and the hammer that strikes it.
struct Gong {
    double pitch = 0;  ///< of the deepest partial, Hz
    std::vector<Partial> partials;
    double hammerPitch = 0;   ///< Hz; higher for smaller and harder hammers
    double hammerLevel = 0;   ///< relative to the partials
    std::uint32_t noise = 1;  ///< seed, not 0
};

Signal Struck(const Gong& gong, double seconds);

/// A resonance of mouth or throat.
struct Formant {
    double centre;     ///< Hz
    double bandwidth;  ///< Hz
    double level;      ///< relative to the other formants
};

using Formants = std::array<Formant, 4>;

/// A voice that utters one sound. The functions are called with the time in seconds from its start.
struct Voice {
    std::function<double(double)> pitch;     ///< Hz
    std::function<double(double)> loudness;  ///< 0 to 1
    std::function<Formants(double)> vowel;
    double breath = 0;        ///< level of breath noise, 0: none
    std::uint32_t noise = 1;  ///< seed, not 0
};

Signal Uttered(const Voice& voice, double seconds);

}  // namespace tickwell
