// SPDX-License-Identifier: GPL-3.0-or-later
#include "lines/line_styles.h"

#include "lines/line_look.h"

namespace tickwell::lines {

namespace {

void ApplyStyle(MovingWord& word, const LineStyle& style, qint32 wipeKind) {
    word.setFont(FontOf(style));
    word.SetForeColor(style.color);
    word.SetWipeKind(wipeKind);
}

}  // namespace

void ApplyLineStyles(MovingWord& upper, MovingWord& lower, const AppSettings& settings) {
    ApplyStyle(upper, settings.upper, settings.wipeKind);
    ApplyStyle(lower, settings.lower, settings.wipeKind);
    upper.SetBackColor(settings.backColor);
    lower.SetBackColor(settings.backColor);
    upper.SetFrameInterval(FrameIntervalOf(settings.wipeSpeed));
    lower.SetFrameInterval(FrameIntervalOf(settings.wipeSpeed));
    upper.SetStepSize(StepSizeOf(settings.upper.fontSize, settings.wipeSpeed));
    lower.SetStepSize(StepSizeOf(settings.lower.fontSize, settings.wipeSpeed));
}

}  // namespace tickwell::lines
