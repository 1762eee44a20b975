// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell {

/// How the program and its helper tickwell-cd understand each other. SOURCE is the node of a drive or an
/// image: .cue or .bin, .toc, .nrg.
///
///   tickwell-cd look SOURCE
/// writes what is there, a line each: kNoDisc, kTrayOpen, kNotReady or kNoRight alone; or kDisc, then for
/// each track kAudioTrack or kDataTrack and its first sector, then kLeadOut and the first sector behind the
/// last track.
///
///   tickwell-cd read SOURCE FROM TO CONTENTS
/// writes the sound of the sectors FROM to TO - 1: kSectorBytes each, 16 bits little-endian, two channels,
/// 44100 frames a second. What cannot be read and what is data is silence, so that each sector has its place.
/// CONTENTS is what was seen at the look, the lines behind kDisc with kLineJoint between them: of another
/// disc nothing is read.
///
/// Sectors count from 0, 75 to the second. The helper may die of a damaged image at any moment: its answer
/// counts only when it ends with kEndDone.
inline constexpr const char* kLookWord = "look";
inline constexpr const char* kReadWord = "read";

inline constexpr const char* kNoDisc = "no-disc";
inline constexpr const char* kTrayOpen = "tray-open";
inline constexpr const char* kNotReady = "not-ready";
inline constexpr const char* kNoRight = "no-right";  // to read it
inline constexpr const char* kDisc = "disc";
inline constexpr const char* kAudioTrack = "audio";
inline constexpr const char* kDataTrack = "data";
inline constexpr const char* kLeadOut = "end";
inline constexpr char kLineJoint = ',';

inline constexpr int kSectorBytes = 2352;
inline constexpr int kMostTracks = 99;
inline constexpr int kMostSectors = 100 * 60 * 75;  // the longest disc that can be written, 100 minutes

/// Exit codes.
inline constexpr int kEndDone = 0;
inline constexpr int kEndUsage = 1;
inline constexpr int kEndGone = 2;  // no disc, another disc, or an image that cannot be trusted

}  // namespace tickwell
