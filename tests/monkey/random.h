// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>
#include <iterator>

namespace tickwell {

/// Numbers that follow no pattern and are the same for a seed on every machine, whatever the toolkit's
/// version (SplitMix64).
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

    /// From 0 up to `below`, which is not reached and is above 0.
    int Number(int below) { return static_cast<int>(Next() % static_cast<quint64>(below)); }

    /// Both may come.
    int Between(int first, int last) { return first + Number(last - first + 1); }

    bool OneIn(int count) { return Number(count) == 0; }

    /// One of a list that is not empty.
    template <typename List>
    const auto& Pick(const List& list) {
        return *std::next(std::begin(list), Number(static_cast<int>(std::size(list))));
    }

private:
    quint64 m_state;
};

}  // namespace tickwell
