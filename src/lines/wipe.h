// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRect>
#include <QSize>

namespace tickwell::lines {

/// Kinds of wipes, as stored. With any other number, new text is shown at once.
inline constexpr qint32 kWipeLeftToRight = 0;
inline constexpr qint32 kWipeRightToLeft = 1;
inline constexpr qint32 kWipeTopToBottom = 2;
inline constexpr qint32 kWipeBottomToTop = 3;

/// The state of one wipe: an edge moves across the line, with the new text behind it and the old text ahead
/// of it.
struct Wipe {
    qint32 kind = kWipeTopToBottom;
    int position = 0;  ///< pixels that the edge has moved, 0 at the start

    /// Pixels from the first to the last position on a line of this size; 0 for an unknown kind.
    int Length(QSize line) const;

    /// Advances the edge; a step below 1 counts as 1, so that every wipe ends. Returns false once the edge
    /// has reached the end.
    bool Advance(int step, QSize line);

    /// The parts of a line of this size that show the new and the old text. Together they cover the line.
    QRect NewPart(QSize line) const;
    QRect OldPart(QSize line) const;
};

}  // namespace tickwell::lines
