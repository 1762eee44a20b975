// SPDX-License-Identifier: GPL-3.0-or-later
#include "make_sounds/signal.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace tickwell {

namespace {

using std::numbers::pi;

// In samples: 30 to 65 ms. Primes, so that the echoes rarely coincide.
constexpr std::array<std::size_t, 4> kEchoes = {661, 877, 1103, 1423};

std::size_t SamplesIn(double seconds) {
    return static_cast<std::size_t>(seconds * kSampleRate);
}

/// Adds the repeated echoes of one pair of walls.
void AddEchoes(Signal& echoes, const Signal& signal, std::size_t delay, double fadeSeconds) {
    const double kept = std::pow(10, -3 * SecondsAt(delay) / fadeSeconds);
    Signal ringing = signal;
    for (std::size_t i = delay; i < signal.size(); ++i) {
        ringing[i] += kept * ringing[i - delay];
        echoes[i] += ringing[i - delay] / kEchoes.size();
    }
}

}  // namespace

Signal Silence(double seconds) {
    Signal silence(SamplesIn(seconds), 0.0);
    return silence;
}

double SecondsAt(std::size_t sample) {
    return static_cast<double>(sample) / kSampleRate;
}

void Mix(Signal& signal, const Signal& part, double atSeconds, double gain) {
    const std::size_t start = std::min(SamplesIn(atSeconds), signal.size());
    const std::size_t count = std::min(part.size(), signal.size() - start);
    for (std::size_t i = 0; i < count; ++i) {
        signal[start + i] += gain * part[i];
    }
}

void AddRoom(Signal& signal, double level, double fadeSeconds) {
    Signal echoes(signal.size(), 0.0);
    for (const std::size_t delay : kEchoes) {
        AddEchoes(echoes, signal, delay, fadeSeconds);
    }
    Mix(signal, echoes, 0, level);
}

double Sine(double cycles) {
    return std::sin(2 * pi * cycles);
}

double Rise(double x) {
    return 0.5 - 0.5 * std::cos(pi * std::clamp(x, 0.0, 1.0));
}

double Swell(double t, double length, double attack, double release) {
    return Rise(t / attack) * Rise((length - t) / release);
}

double Noise::Next() {
    // Marsaglia's 32-bit xorshift, whose period covers every number except 0.
    m_state ^= m_state << 13;
    m_state ^= m_state >> 17;
    m_state ^= m_state << 5;
    return m_state / 2147483648.0 - 1.0;
}

void Resonator::Tune(double centre, double bandwidth) {
    const double radius = std::exp(-pi * bandwidth / kSampleRate);
    const double angle = 2 * pi * centre / kSampleRate;
    m_feedback1 = 2 * radius * std::cos(angle);
    m_feedback2 = -radius * radius;
    // Compensates the gain of the resonance, so that the centre frequency passes unchanged.
    m_gain = (1 - radius) * std::sqrt(1 - 2 * radius * std::cos(2 * angle) + radius * radius);
}

double Resonator::Next(double input) {
    const double output = m_gain * input + m_feedback1 * m_last1 + m_feedback2 * m_last2;
    m_last2 = m_last1;
    m_last1 = output;
    return output;
}

}  // namespace tickwell
