// SPDX-License-Identifier: GPL-3.0-or-later
// The appearance of the main window and its position on the screens, as far as the user has chosen them.
#include <algorithm>

#include "shell/main_window.h"

namespace tickwell::shell {

namespace {

constexpr qint32 kLeastOpacity = 20;  // percent; a fainter window could not be found again
constexpr qint32 kFullOpacity = 100;

LongText LongTextOf(qint32 number) {
    return number == 1 ? LongText::Ellipsis : number == 2 ? LongText::ScrollOnce : LongText::CutOff;
}

/// The outline's width in pixels.
int OutlineWidthOf(qint32 number) {
    switch (static_cast<TextOutline>(number)) {
        case TextOutline::None:
            return 0;
        case TextOutline::Thick:
            return 2;
        case TextOutline::Thin:
            break;
    }
    return 1;
}

}  // namespace

/// Without a compositing manager, the unpainted area of a translucent window is black, so the background is
/// painted until there is one.
void Form1::ShowThrough() {
    std::optional<int> outline;
    const FaceSettings& face = m_parts.further.face;
    if (testAttribute(Qt::WA_TranslucentBackground) && face.transparent && m_parts.isComposited()) {
        outline = OutlineWidthOf(face.outline);
    }
    m_upperLine->SetSeeThrough(outline);
    m_lowerLine->SetSeeThrough(outline);
}

void Form1::ApplyFace() {
    const FaceSettings& face = m_parts.further.face;
    ApplySwitcher();
    m_hiding.Use(face.hidesUnderFullScreen);
    setWindowOpacity(std::clamp(face.opacity, kLeastOpacity, kFullOpacity) / double{kFullOpacity});
    const LongText longText = LongTextOf(face.longText);
    m_upperLine->SetLongText(longText);
    m_lowerLine->SetLongText(longText);
    ShowThrough();
    // Otherwise tool tips appear only in an active window, which this one hardly ever is.
    setAttribute(Qt::WA_AlwaysShowToolTips, longText != LongText::CutOff);
}

/// Window managers leave tool windows out of their switchers, and read the window type only when a window is
/// mapped.
void Form1::ApplySwitcher() {
    const Qt::WindowType type = m_parts.further.face.inWindowSwitcher ? Qt::Window : Qt::Tool;
    if (windowType() == type) {
        return;
    }
    const bool wasVisible = isVisible();
    setWindowFlags((windowFlags() & ~Qt::WindowType_Mask) | type);
    if (wasVisible) {
        ShowAgain();
    }
}

}  // namespace tickwell::shell
