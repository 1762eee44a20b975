// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <cstdint>

namespace tickwell::sound_helper {

/// Protocol between the program and its helper tickwell-sound, which plays one stream of sound.
///
///   tickwell-sound RATE CHANNELS
/// opens a device of that format. Its standard input is a file in memory that both map: a SharedSound, and
/// from kSoundStart on the queued sound, signed 16-bit samples in native byte order, channels interleaved.
/// The program appends without end, and removes from the file what has been taken. The helper writes
/// kOpened or kRefused to its standard output when it knows, and plays until the other end of that pipe is
/// closed: by the program, or because the program has ended.
///
/// Positions are counted in bytes from the first queued sample.
struct SharedSound {
    // Written by the program.
    std::atomic<std::uint64_t> queued = 0;   ///< the end of what may be played
    std::atomic<std::uint64_t> dropped = 0;  ///< what lies before it is not played
    std::atomic<bool> isHeld = false;        ///< silence, and nothing is taken

    // Written by the helper.
    std::atomic<std::uint64_t> taken = 0;    ///< the end of what the device has taken
    std::atomic<bool> isTaking = false;      ///< it is about to change `taken`, unless it sees `isHeld`
    std::atomic<bool> isDeviceLost = false;  ///< the connection to the sound server has ended
};

static_assert(std::atomic<std::uint64_t>::is_always_lock_free && std::atomic<bool>::is_always_lock_free);

inline constexpr int kSoundStart = 4096;  // a page
static_assert(sizeof(SharedSound) <= kSoundStart);

inline constexpr char kOpened = 'o';
inline constexpr char kRefused = 'r';

inline constexpr int kLowestRate = 1000;  // frames a second
inline constexpr int kHighestRate = 384'000;

/// Exit codes.
inline constexpr int kEndDone = 0;
inline constexpr int kEndUsage = 1;
inline constexpr int kEndRefused = 2;

}  // namespace tickwell::sound_helper
