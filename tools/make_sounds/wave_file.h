// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "make_sounds/signal.h"

namespace tickwell {

/// The signal made ready to be played: no direct current, silent ends, and its loudest sample as high as
/// `peak` (above 0, below 1 = full scale). The signal is at least 0.1 s long and not all silence.
std::vector<std::int16_t> Finished(Signal signal, double peak);

/// A whole RIFF/WAVE file: PCM, one channel, 16 bits, kSampleRate.
std::string WaveBytes(const std::vector<std::int16_t>& samples);

/// Writes a file, over an older one if need be. Throws std::system_error that names path and reason.
void WriteFile(const std::string& path, const std::string& bytes);

}  // namespace tickwell
