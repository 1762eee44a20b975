// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QFont>

#include "core/settings.h"

namespace tickwell::lines {

/// The colour stored as red + green * 256 + blue * 65536. Only this function and the next know that order.
QColor ColorFromNumber(qint32 color);

/// The number that is stored for a colour.
qint32 ColorNumberOf(const QColor& color);

/// The font to draw with. The style keeps its own name: what the machine puts in its place is never written
/// back.
QFont FontOf(const LineStyle& style);

/// Milliseconds between two frames of a wipe: 70 - 2 * speed, 0 and below included. Throws OverflowError.
qint32 FrameIntervalOf(qint32 wipeSpeed);

/// Pixels a wipe goes on by a frame: size * speed / 100 + 1, halves to even. Throws OverflowError.
qint32 StepSizeOf(qint16 fontSize, qint32 wipeSpeed);

/// Lets the fonts of Japanese desktops stand in for "ＭＳ Ｐゴシック", the closest in its measures first.
/// Once a process, before the first line is drawn.
void InstallFontSubstitutes();

}  // namespace tickwell::lines
