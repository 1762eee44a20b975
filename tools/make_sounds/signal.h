// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tickwell {

/// Samples per second of all signals.
inline constexpr int kSampleRate = 22050;

/// One channel of sound in an arbitrary scale: the level is set when the file is made.
using Signal = std::vector<double>;

/// A signal of zeros. A fraction of a sample at the end of `seconds` is dropped.
Signal Silence(double seconds);

/// The time of a sample in seconds from the first.
double SecondsAt(std::size_t sample);

/// Adds `part`, multiplied by `gain`, starting at `atSeconds`. Anything beyond the end is cut off.
void Mix(Signal& signal, const Signal& part, double atSeconds, double gain = 1);

/// Adds the reverberation of a small room. `level`: relative to the direct sound; `fadeSeconds`: until it has
/// decayed by 60 dB. The length is unchanged.
void AddRoom(Signal& signal, double level, double fadeSeconds);

/// A sine wave after `cycles` cycles.
double Sine(double cycles);

/// 0 up to x = 0, 1 from x = 1 on, half a cosine in between: fades without a click.
double Rise(double x);

/// An envelope at `t`: rises, stays at 1 and falls within `length`. All in seconds.
double Swell(double t, double length, double attack, double release);

/// White noise from -1 to 1. The same seed gives the same noise on every machine, so sounds are reproducible.
class Noise {
public:
    /// `seed`: not 0.
    explicit Noise(std::uint32_t seed) : m_state(seed) {}

    double Next();

private:
    std::uint32_t m_state;
};

/// A two-pole filter that passes one frequency unchanged and attenuates others. Silent until tuned.
class Resonator {
public:
    Resonator() = default;

    /// Both in Hz, as for Tune().
    Resonator(double centre, double bandwidth) { Tune(centre, bandwidth); }

    /// Changes the frequency without interrupting the resonance. `centre` is below half the sample rate.
    void Tune(double centre, double bandwidth);

    /// Filters one sample.
    double Next(double input);

private:
    double m_gain = 0;
    double m_feedback1 = 0;
    double m_feedback2 = 0;
    double m_last1 = 0;
    double m_last2 = 0;
};

}  // namespace tickwell
