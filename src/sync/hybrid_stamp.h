// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>
#include <compare>

namespace tickwell::sync {

/// When and where a row came or went: a hybrid logical stamp. Stamps are totally ordered, and a change that
/// was made in the knowledge of another one has the greater stamp, whatever the computers' clocks show.
struct HybridStamp {
    qint64 milliseconds = 0;  ///< since 1970 UTC, 0 to kLastMoment
    quint32 counter = 0;      ///< orders the changes of one millisecond
    quint64 replica = 0;      ///< the computer that made the change

    auto operator<=>(const HybridStamp&) const = default;  // NOLINT(modernize-use-nullptr): a false alarm
};

inline constexpr qint64 kLastMoment = 253'402'300'799'999;  ///< the end of the year 9999
/// The greatest counter that is read from a file, so that a crafted file leaves two thousand million stamps.
inline constexpr quint32 kMostCounter = 0x7FFF'FFFF;

/// Makes the stamps of one computer. It never goes back: it takes the wall clock while that is ahead of all
/// stamps seen so far, and otherwise counts on from the greatest of them.
///
/// A clock that is a day ahead therefore makes stamps of tomorrow, and the other computers count on from
/// these until their own clocks have reached them. Nothing is refused for that: only the order of two changes
/// that did not know of each other depends on the clocks.
class HybridClock {
public:
    explicit HybridClock(quint64 replica) : m_replica(replica) {}

    /// Later stamps will be greater than this one.
    void Observe(const HybridStamp& seen);

    /// A stamp greater than all made and observed before. `now`: the wall clock, ms since 1970 UTC.
    HybridStamp Next(qint64 now);

private:
    quint64 m_replica;
    qint64 m_milliseconds = 0;
    quint32 m_counter = 0;
};

}  // namespace tickwell::sync
