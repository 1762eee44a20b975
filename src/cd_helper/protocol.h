// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell::cd_helper {

/// Protocol between the program and its helper tickwell-cd. SOURCE is a drive's device node or an image: .cue
/// or .bin, .toc, .nrg.
///
///   tickwell-cd look SOURCE [titles]
/// writes the state of the drive, one item per line: only kNoDisc, kTrayOpen, kNotReady or kNoRight; or
/// kDisc, then for each track kAudioTrack or kDataTrack and its first sector, then kLeadOut and the first
/// sector after the last track. With "titles", each title on the disc follows: kTitle, the number of its
/// track, 0 for the disc, in ascending order, and its bytes, percent-encoded: at most kLongestTitle
/// characters of UTF-8, or of Shift_JIS if they are not valid UTF-8.
///
///   tickwell-cd read SOURCE FROM TO CONTENTS
/// writes the sound of the sectors FROM to TO - 1: kSectorBytes each, 16 bits little-endian, two channels,
/// 44100 frames a second. Unreadable sectors and data sectors are written as silence, so that every sector
/// keeps its position. CONTENTS are the lines that "look" wrote after kDisc, separated by kLineJoint: nothing
/// is read from a different disc. The titles are not among them.
///
/// Sectors count from 0, 75 a second. A damaged image may crash the helper at any time: its output is valid
/// only if it exits with kEndDone.
inline constexpr const char* kLookWord = "look";
inline constexpr const char* kReadWord = "read";
inline constexpr const char* kTitlesWord = "titles";

inline constexpr const char* kNoDisc = "no-disc";
inline constexpr const char* kTrayOpen = "tray-open";
inline constexpr const char* kNotReady = "not-ready";
inline constexpr const char* kNoRight = "no-right";  // no permission to read it
inline constexpr const char* kDisc = "disc";
inline constexpr const char* kAudioTrack = "audio";
inline constexpr const char* kDataTrack = "data";
inline constexpr const char* kLeadOut = "end";
inline constexpr const char* kTitle = "title";
inline constexpr char kLineJoint = ',';

inline constexpr int kSectorBytes = 2352;
inline constexpr int kMostTracks = 99;
inline constexpr int kLongestTitle = 200;           // characters
inline constexpr int kMostTitleBytes = 800;         // of a title of that length in UTF-8
inline constexpr int kMostSectors = 100 * 60 * 75;  // 100 minutes, the longest disc that can be written

/// Exit codes.
inline constexpr int kEndDone = 0;
inline constexpr int kEndUsage = 1;
inline constexpr int kEndGone = 2;  // no disc, a different disc, or an untrusted image

}  // namespace tickwell::cd_helper
