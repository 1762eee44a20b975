// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace tickwell {

inline constexpr int kTestSectorBytes = 2352;
inline constexpr int kTestPregap = 150;  // sectors before the first one, which images of some kinds hold

/// A track to be made: a tone on the left and its fifth on the right, or data. A tone grows louder from its
/// start to its end, so that no two moments of it are the same.
struct TestTrack {
    double hertz = 0;  ///< 0 is data
    int sectors = 0;   ///< without its pause
    int pause = 0;     ///< silent sectors before its start
};

/// A disc in memory, as its sectors follow each other.
struct TestDisc {
    QByteArray bytes;
    QList<TestTrack> tracks;
    QList<int> starts;  ///< sector of each track
    int end = 0;        ///< first sector behind the last track

    /// The sectors `from` to `to` - 1, with data as silence: what a player shall play.
    QByteArray Sound(int from, int to) const;
};

TestDisc MakeDisc(const QList<TestTrack>& tracks);

/// Tones of 440, 660 and 880 Hz; no length is a multiple of a second, and the second track has a pause.
TestDisc ThreeTones();

/// A data track of four seconds, then tones of 500 and 700 Hz.
TestDisc MixedMode();

/// Each writes NAME.bin and what belongs to it, and gives the path of what a player opens.
QString WriteCueImage(const TestDisc& disc, const QString& folder, const QString& name);
QString WriteTocImage(const TestDisc& disc, const QString& folder, const QString& name);
QString WriteNrgImage(const TestDisc& disc, const QString& folder, const QString& name);

/// What a cue sheet says of the disc, with the file named so.
QByteArray CueSheet(const TestDisc& disc, const QString& binName);

/// Minutes, seconds and sectors: "00:04:21".
QByteArray MinutesSecondsSectors(int sector);

}  // namespace tickwell
