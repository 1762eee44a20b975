// SPDX-License-Identifier: GPL-3.0-or-later
#include "lines/line_look.h"

#include <algorithm>

#include "core/font_names.h"
#include "core/integers.h"

namespace tickwell::lines {

using namespace Qt::StringLiterals;

namespace {

// The sizes that Qt can draw. The stored size is not changed.
constexpr int kSmallestPoints = 1;
constexpr int kLargestPoints = 1638;

}  // namespace

QColor ColorFromNumber(qint32 color) {
    const auto bits = static_cast<quint32>(color);
    return QColor(static_cast<int>(bits & 0xFF), static_cast<int>(bits >> 8 & 0xFF),
                  static_cast<int>(bits >> 16 & 0xFF));
}

qint32 ColorNumberOf(const QColor& color) {
    return color.red() | color.green() << 8 | color.blue() << 16;
}

QFont FontOf(const LineStyle& style) {
    QFont font(style.fontName);
    font.setPointSize(std::clamp<int>(style.fontSize, kSmallestPoints, kLargestPoints));
    font.setBold(style.bold);
    font.setItalic(style.italic);
    font.setStrikeOut(style.strikethrough);
    font.setUnderline(style.underline);
    return font;
}

qint32 FrameIntervalOf(qint32 wipeSpeed) {
    return Checked32(70 - 2 * qint64{wipeSpeed});
}

qint32 StepSizeOf(qint16 fontSize, qint32 wipeSpeed) {
    return Checked32(RoundHalfEven(qint64{fontSize} * wipeSpeed + 100, 100));  // |product| < 2^46
}

void PreferJapaneseFonts() {
    constexpr auto kLanguage = "FC_LANG";
    if (qEnvironmentVariableIsEmpty(kLanguage)) {
        qputenv(kLanguage, "ja");
    }
}

void InstallFontSubstitutes() {
    QFont::insertSubstitutions(kGothicFont, GothicSubstitutes());
}

}  // namespace tickwell::lines
