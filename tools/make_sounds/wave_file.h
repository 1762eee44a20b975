// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "make_sounds/signal.h"

namespace tickwell {

/// Prepares a signal for playing: removes the DC offset, fades the ends, and scales the loudest sample to
/// `peak` (above 0, below 1 = full scale). The signal is at least 0.1 s long and not entirely silent.
std::vector<std::int16_t> Finished(Signal signal, double peak);

/// A complete RIFF/WAVE file: PCM, one channel, 16 bits, kSampleRate.
std::string WaveBytes(const std::vector<std::int16_t>& samples);

/// Writes a file, replacing an existing one. Throws std::system_error with path and reason.
void WriteFile(const std::string& path, const std::string& bytes);

}  // namespace tickwell
