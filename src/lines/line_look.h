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

/// The font to draw with. The style keeps its font name: a substitute is never stored.
QFont FontOf(const LineStyle& style);

/// Milliseconds between two frames of a wipe: 70 - 2 * speed, which can be 0 or negative. Throws
/// OverflowError.
qint32 FrameIntervalOf(qint32 wipeSpeed);

/// Pixels that a wipe advances per frame: size * speed / 100 + 1, halves to even. Throws OverflowError.
qint32 StepSizeOf(qint16 fontSize, qint32 wipeSpeed);

/// Makes fontconfig choose fonts for Japanese texts in every locale, unless the user's FC_LANG names a
/// language: otherwise it prefers fonts for the locale's language and takes each missing character from
/// whatever font has it. To be called before the application object is constructed; programs that are started
/// later must not inherit the variable.
void PreferJapaneseFonts();

/// Makes fonts of Japanese desktops the substitutes for "ＭＳ Ｐゴシック", the one with the most similar
/// metrics first. Called once per process, before the first line is drawn.
void InstallFontSubstitutes();

}  // namespace tickwell::lines
