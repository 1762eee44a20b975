// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>
#include <iterator>

namespace tickwell {

/// SplitMix64: pseudorandom numbers that depend only on the seed, on any machine and with any Qt version.
class Random {
public:
    explicit Random(quint64 seed) : m_state(seed) {}

    quint64 Next() {
        m_state += 0x9E3779B97F4A7C15U;
        quint64 mixed = m_state;
        mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
        return mixed ^ (mixed >> 31U);
    }

    /// 0 to `below` - 1. `below` is above 0.
    int Number(int below) { return static_cast<int>(Next() % static_cast<quint64>(below)); }

    /// `first` to `last`, both included.
    int Between(int first, int last) { return first + Number(last - first + 1); }

    bool OneIn(int count) { return Number(count) == 0; }

    /// A random element of a non-empty container.
    template <typename List>
    const auto& Pick(const List& list) {
        return *std::next(std::begin(list), Number(static_cast<int>(std::size(list))));
    }

private:
    quint64 m_state;
};

}  // namespace tickwell
