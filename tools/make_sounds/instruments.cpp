// SPDX-License-Identifier: GPL-3.0-or-later
#include "make_sounds/instruments.h"

#include <cmath>
#include <numbers>

namespace tickwell {

namespace {

using std::numbers::pi;

void AddPartial(Signal& signal, double pitch, const Partial& partial, double phase) {
    constexpr double kContactSeconds = 0.0015;  // metal yields to the hammer before it vibrates
    for (std::size_t i = 0; i < signal.size(); ++i) {
        const double t = SecondsAt(i);
        signal[i] += partial.level * std::exp(-t / partial.decaySeconds) * Sine(pitch * t + phase) *
                     Rise(t / kContactSeconds);
    }
}

void AddHammer(Signal& signal, const Gong& gong, Noise& noise) {
    constexpr double kSeconds = 0.05;  // inaudible after that
    Resonator head(gong.hammerPitch, 900);
    for (std::size_t i = 0; i < signal.size() && SecondsAt(i) < kSeconds; ++i) {
        const double t = SecondsAt(i);
        signal[i] += gong.hammerLevel * head.Next(noise.Next()) * std::exp(-t / 0.006) * Rise(t / 0.0005);
    }
}

/// The air flow through the vocal folds during one cycle (Rosenberg's pulse). They open slowly, snap shut,
/// which creates the overtones of a voice, and stay closed until the next cycle.
double FoldsOpening(double phase) {
    constexpr double kShut = 0.6;
    constexpr double kWidest = kShut * 0.66;
    if (phase < kWidest) {
        return 0.5 - 0.5 * std::cos(pi * phase / kWidest);
    }
    return phase < kShut ? std::cos(pi / 2 * (phase - kWidest) / (kShut - kWidest)) : 0;
}

/// The vocal folds: the source signal that the throat shapes to a vowel.
class Folds {
public:
    Folds(double breath, std::uint32_t seed) : m_breath(breath), m_noise(seed) {}

    double Next(double pitch) {
        m_phase += pitch * m_unsteadiness / kSampleRate;
        if (m_phase >= 1) {
            m_phase -= 1;
            m_unsteadiness = 1 + 0.012 * m_noise.Next();  // identical cycles would sound like an organ
        }
        const double opening = FoldsOpening(m_phase);
        // The lips transmit the change of the flow, not the flow itself.
        const double change = opening - m_lastOpening;
        m_lastOpening = opening;
        return change * 2.5 + m_breath * m_noise.Next() * (0.3 + opening);
    }

private:
    double m_breath;
    Noise m_noise;
    double m_phase = 0;
    double m_unsteadiness = 1;
    double m_lastOpening = 0;
};

/// Throat and mouth: parallel formants.
class Throat {
public:
    void Shape(const Formants& vowel) {
        for (std::size_t k = 0; k < vowel.size(); ++k) {
            m_hollows[k].Tune(vowel[k].centre, vowel[k].bandwidth);
            // Adjacent formants have opposite signs; otherwise they would cancel each other between their
            // frequencies.
            m_levels[k] = k % 2 == 0 ? vowel[k].level : -vowel[k].level;
        }
    }

    double Next(double input) {
        double output = 0;
        for (std::size_t k = 0; k < m_hollows.size(); ++k) {
            output += m_levels[k] * m_hollows[k].Next(input);
        }
        return output;
    }

private:
    std::array<Resonator, std::tuple_size_v<Formants>> m_hollows;
    std::array<double, std::tuple_size_v<Formants>> m_levels = {};
};

}  // namespace

Signal Beep(double pitch, double seconds) {
    Signal beep = Silence(seconds);
    for (std::size_t i = 0; i < beep.size(); ++i) {
        const double t = SecondsAt(i);
        const double cycles = pitch * t;
        beep[i] = Swell(t, seconds, 0.004, 0.008) *
                  (Sine(cycles) + 0.35 * Sine(2 * cycles) + 0.2 * Sine(3 * cycles));
    }
    return beep;
}

Signal StoppedPipe(double pitch, double seconds, Noise& air) {
    Signal tone = Silence(seconds);
    Resonator hiss(pitch, pitch * 0.25);
    Resonator chiff(pitch * 3, pitch * 0.6);
    double cycles = 0;
    for (std::size_t i = 0; i < tone.size(); ++i) {
        const double t = SecondsAt(i);
        // A pipe starts below its pitch and vibrates with the bellows.
        cycles += pitch * (1 - 0.02 * std::exp(-t / 0.02) + 0.003 * Sine(5.5 * t)) / kSampleRate;
        const double pipe =
            Sine(cycles) + 0.12 * Sine(3 * cycles) + 0.03 * Sine(5 * cycles) + 0.03 * Sine(2 * cycles);
        const double wind = air.Next();
        // The noise is stronger while the tone builds up.
        const double spit = 0.15 + 0.5 * std::exp(-t / 0.03);
        tone[i] =
            Swell(t, seconds, 0.03, 0.07) * (pipe + 0.3 * hiss.Next(wind) + 0.5 * chiff.Next(wind) * spit);
    }
    return tone;
}

Signal DoorClick(Noise& noise) {
    Signal click = Silence(0.03);
    Resonator wood(1800, 1200);
    for (std::size_t i = 0; i < click.size(); ++i) {
        click[i] = wood.Next(noise.Next()) * std::exp(-SecondsAt(i) / 0.004);
    }
    return click;
}

Signal Struck(const Gong& gong, double seconds) {
    Signal signal = Silence(seconds);
    Noise noise(gong.noise);
    for (const Partial& partial : gong.partials) {
        const double phase = noise.Next() * 0.3 / (2 * pi);
        AddPartial(signal, gong.pitch * partial.ratio, partial, phase);
    }
    AddHammer(signal, gong, noise);
    return signal;
}

Signal Uttered(const Voice& voice, double seconds) {
    constexpr std::size_t kSamplesPerShape = 32;  // 1.5 ms; no mouth moves faster
    Signal signal = Silence(seconds);
    Folds folds(voice.breath, voice.noise);
    Throat throat;
    for (std::size_t i = 0; i < signal.size(); ++i) {
        const double t = SecondsAt(i);
        if (i % kSamplesPerShape == 0) {
            throat.Shape(voice.vowel(t));
        }
        signal[i] = throat.Next(folds.Next(voice.pitch(t)) * voice.loudness(t));
    }
    return signal;
}

}  // namespace tickwell
