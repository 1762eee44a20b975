// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRect>
#include <QSize>

namespace tickwell::lines {

/// Ways in which new text comes in, as they are stored. Any other number: at once.
inline constexpr qint32 kWipeLeftToRight = 0;
inline constexpr qint32 kWipeRightToLeft = 1;
inline constexpr qint32 kWipeTopToBottom = 2;
inline constexpr qint32 kWipeBottomToTop = 3;

/// The phase of one wipe: an edge runs across the line, behind it stands the new text, before it still the
/// old one.
struct Wipe {
    qint32 kind = kWipeTopToBottom;
    int position = 0;  ///< pixels that the edge has come, 0 at the start

    /// Pixels from the first to the last position on a line of this size; 0 for an unknown kind.
    int Length(QSize line) const;

    /// Moves the edge on; a step below 1 counts as 1, so that every wipe ends. False once the edge has
    /// arrived.
    bool Advance(int step, QSize line);

    /// What of a line of this size shows the new text, and what the old. Together they are the line.
    QRect NewPart(QSize line) const;
    QRect OldPart(QSize line) const;
};

}  // namespace tickwell::lines
