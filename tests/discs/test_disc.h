// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace tickwell {

inline constexpr int kTestSectorBytes = 2352;
inline constexpr int kTestPregap = 150;  // sectors before the first track, included in images of some kinds

/// A track to create: a tone in the left channel and the fifth above it in the right one, or data. The volume
/// of a tone increases from start to end, so that every moment sounds different.
struct TestTrack {
    double hertz = 0;  ///< frequency of the left channel; 0 for data
    int sectors = 0;   ///< without the pause
    int pause = 0;     ///< silent sectors before its start
};

/// A disc in memory, as its consecutive sectors.
struct TestDisc {
    QByteArray bytes;
    QList<TestTrack> tracks;
    QList<int> starts;         ///< sector of each track
    int end = 0;               ///< first sector after the last track
    QList<QByteArray> titles;  ///< of the disc, then of each track, for sheets; may be incomplete

    /// The sectors `from` to `to` - 1 with silence in place of data: what a player must play.
    QByteArray Sound(int from, int to) const;
};

TestDisc MakeDisc(const QList<TestTrack>& tracks);

/// Tones of 440, 660 and 880 Hz. No track length is a whole number of seconds, and the second track has a
/// pause.
TestDisc ThreeTones();

/// A data track of four seconds, then tones of 500 and 700 Hz.
TestDisc MixedMode();

/// These functions write NAME.bin and the files that belong to it, and return the path to be opened.
QString WriteCueImage(const TestDisc& disc, const QString& folder, const QString& name);
QString WriteTocImage(const TestDisc& disc, const QString& folder, const QString& name);
QString WriteNrgImage(const TestDisc& disc, const QString& folder, const QString& name);

/// The cue sheet of the disc, for a sound file of this name.
QByteArray CueSheet(const TestDisc& disc, const QString& binName);

/// Minutes, seconds and sectors: "00:04:21".
QByteArray MinutesSecondsSectors(int sector);

}  // namespace tickwell
