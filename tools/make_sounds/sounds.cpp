// SPDX-License-Identifier: GPL-3.0-or-later
#include "make_sounds/sounds.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

#include "make_sounds/instruments.h"

namespace tickwell {

namespace {

constexpr std::uint32_t kAirSeed = 2463534242U;

/// One cry of `seconds`; its pitch rises from about `low` to `high` and falls again (Hz).
Signal Cry(double seconds, double low, double high, std::uint32_t seed) {
    Voice baby;
    baby.pitch = [=](double t) {
        const double part = t / seconds;
        const double arch = std::sin(std::numbers::pi * std::min(1.0, part * 0.92 + 0.06));
        return low + (high - low) * std::pow(arch, 0.7) + 9 * Sine(7.5 * t) * part;
    };
    baby.loudness = [=](double t) { return Swell(t, seconds, 0.06, 0.16) * (0.85 + 0.15 * Sine(11 * t)); };
    baby.vowel = [](double t) {
        const double mouth = Rise((t - 0.03) / 0.14);  // from "o" to a wide "a"
        return Formants{{{750 + 450 * mouth, 220, 1.0},
                         {1600 + 700 * mouth, 260, 1.1},
                         {3500 + 200 * mouth, 300, 0.35},
                         {5000, 450, 0.2}}};
    };
    baby.breath = 0.10;
    baby.noise = seed;
    return Uttered(baby, seconds);
}

/// An audible breath between two cries.
Signal Gasp() {
    constexpr double kSeconds = 0.22;
    Signal gasp = Silence(kSeconds);
    Noise air(kAirSeed);
    Resonator throat(2200, 1500);
    for (std::size_t i = 0; i < gasp.size(); ++i) {
        gasp[i] = throat.Next(air.Next()) * Swell(SecondsAt(i), kSeconds, 0.1, 0.06);
    }
    return gasp;
}

}  // namespace

Signal TimerNotice() {
    constexpr double kC7 = 2093;
    Signal notice = Silence(2.4);
    const Signal beep = Beep(kC7, 0.075);
    for (int group = 0; group < 3; ++group) {
        for (int place = 0; place < 4; ++place) {
            Mix(notice, beep, group * 0.8 + place * 0.125);
        }
    }
    return notice;
}

Signal CuckooClock() {
    constexpr double kE5 = 659.3;
    constexpr double kC5 = 523.3;  // a third below, like a real cuckoo
    Signal clock = Silence(1.7);
    Noise air(kAirSeed);
    Mix(clock, StoppedPipe(kE5, 0.30, air), 0.10);
    Mix(clock, StoppedPipe(kC5, 0.46, air), 0.50);
    const Signal door = DoorClick(air);
    Mix(clock, door, 0.02, 0.5);
    Mix(clock, door, 1.12, 0.4);
    AddRoom(clock, 0.25, 0.5);
    return clock;
}

Signal BabyCry() {
    Signal cries = Silence(2.3);
    Mix(cries, Cry(0.92, 370, 505, 77), 0.05);
    Mix(cries, Cry(0.88, 360, 480, 99), 1.28, 0.9);
    Mix(cries, Gasp(), 1.02, 0.035);
    AddRoom(cries, 0.12, 0.35);
    return cries;
}

// The ratios 2.76, 5.40, 8.93 and 13.34 are those of a free bar; two partials close together cause beating.

Signal HighStrike() {
    Gong bell;
    bell.pitch = 1318.5;  // E6
    bell.partials = {{1, 1, 0.62},       {1.004, 0.45, 0.55}, {2.02, 0.30, 0.34},
                     {2.76, 0.42, 0.25}, {4.12, 0.16, 0.14},  {5.40, 0.20, 0.09}};
    bell.hammerPitch = 3200;
    bell.hammerLevel = 1.6;
    bell.noise = 11;
    Signal strike = Struck(bell, 2.2);
    AddRoom(strike, 0.18, 0.6);
    return strike;
}

Signal LowStrike() {
    Gong coil;
    coil.pitch = 196.0;  // G3
    coil.partials = {{1, 1, 1.05},     {1.006, 0.5, 0.95}, {2.0, 0.42, 0.75},  {2.76, 0.55, 0.55},
                     {3.01, 0.2, 0.5}, {5.40, 0.34, 0.30}, {8.93, 0.20, 0.16}, {13.34, 0.10, 0.09}};
    coil.hammerPitch = 900;
    coil.hammerLevel = 2.2;
    coil.noise = 23;
    Signal strike = Struck(coil, 2.3);
    AddRoom(strike, 0.2, 0.8);
    return strike;
}

Signal Shout() {
    constexpr double kSeconds = 0.85;
    Voice man;
    man.pitch = [](double t) {
        const double part = t / kSeconds;
        return 150 + 95 * Rise(part / 0.35) - 55 * Rise((part - 0.6) / 0.4) + 3 * Sine(5 * t);
    };
    man.loudness = [](double t) {
        return Swell(t, kSeconds, 0.025, 0.22) * (0.75 + 0.25 * Rise((t - 0.05) / 0.15));
    };
    man.vowel = [](double t) {
        const double mouth = Rise((t - 0.03) / 0.16);  // from "i" to "o"
        return Formants{{{300 + 220 * mouth, 70 + 20 * mouth, 1.0},
                         {2150 - 1250 * mouth, 110, 0.8},
                         {2900 - 350 * mouth, 160, 0.35},
                         {3500, 220, 0.2}}};
    };
    man.breath = 0.05;
    man.noise = 5;
    Signal shout = Silence(1.5);  // the remaining time is reverberation
    Mix(shout, Uttered(man, kSeconds), 0.03);
    AddRoom(shout, 0.22, 0.55);
    return shout;
}

}  // namespace tickwell
