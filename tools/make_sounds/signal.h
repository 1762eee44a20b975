// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tickwell {

/// Samples per second of everything made here.
inline constexpr int kSampleRate = 22050;

/// One channel of sound. Its scale is free: the loudest sample gets its height when the file is made.
using Signal = std::vector<double>;

/// A signal of zeros; the part of a sample that `seconds` may end with is dropped.
Signal Silence(double seconds);

/// When a sample sounds, in seconds from the first.
double SecondsAt(std::size_t sample);

/// Adds `part`, `gain` times as loud, from `atSeconds` on. What would sound past the end is cut off.
void Mix(Signal& signal, const Signal& part, double atSeconds, double gain = 1);

/// Lets the signal ring in a small room. `level`: the room against the straight sound; `fadeSeconds`: until
/// the ringing is down by 60 dB. The length stays.
void AddRoom(Signal& signal, double level, double fadeSeconds);

/// A sine wave after so many cycles.
double Sine(double cycles);

/// 0 up to x = 0, 1 from x = 1 on, half a cosine between: switches without a click.
double Rise(double x);

/// The loudness at `t` of something that swells in, stays and dies away within `length`. All in seconds.
double Swell(double t, double length, double attack, double release);

/// White noise from -1 to 1. The same seed gives the same noise on every machine, so a sound can be made
/// again.
class Noise {
public:
    /// `seed`: any number but 0.
    explicit Noise(std::uint32_t seed) : m_state(seed) {}

    double Next();

private:
    std::uint32_t m_state;
};

/// A filter that lets one pitch through at its own loudness and damps the others (two poles). Silent until
/// tuned.
class Resonator {
public:
    Resonator() = default;

    /// In Hz, as Tune().
    Resonator(double centre, double bandwidth) { Tune(centre, bandwidth); }

    /// Moves the pitch; what rings goes on ringing. `centre` lies below half the sample rate.
    void Tune(double centre, double bandwidth);

    /// Takes one sample in and gives one out.
    double Next(double input);

private:
    double m_gain = 0;
    double m_feedback1 = 0;
    double m_feedback2 = 0;
    double m_last1 = 0;
    double m_last2 = 0;
};

}  // namespace tickwell
