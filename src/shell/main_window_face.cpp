// SPDX-License-Identifier: GPL-3.0-or-later
// The look of the main window and its place on the screens, as far as the user has chosen them.
#include <algorithm>

#include "shell/main_window.h"

namespace tickwell::shell {

namespace {

constexpr qint32 kLeastOpacity = 20;  // percent; what is fainter cannot be found again
constexpr qint32 kFullOpacity = 100;

LongText LongTextOf(qint32 number) {
    return number == 1 ? LongText::Ellipsis : number == 2 ? LongText::ScrollOnce : LongText::CutOff;
}

}  // namespace

void Form1::ApplyFace() {
    const FaceSettings& face = m_parts.further.face;
    setWindowOpacity(std::clamp(face.opacity, kLeastOpacity, kFullOpacity) / double{kFullOpacity});
    const LongText longText = LongTextOf(face.longText);
    m_upperLine->SetLongText(longText);
    m_lowerLine->SetLongText(longText);
    // The window is hardly ever the active one.
    setAttribute(Qt::WA_AlwaysShowToolTips, longText != LongText::CutOff);
}

/// Brings the window to where it belongs on the connected screens, if the user wants that.
void Form1::ReturnToScreen() {
    if (!m_parts.further.face.staysOnScreen) {
        m_screens.Set({});
        return;
    }
    const QRect stored(m_geometry.Position(), size());
    const QPoint place = m_screens.PositionFor(stored);
    if (place != stored.topLeft()) {
        m_geometry.Settle();  // this position is intended, not the stored one
        m_geometry.Moved(place);
        m_geometry.Unsettle();  // window managers place windows as well when the screens change
        move(place);
    }
}

}  // namespace tickwell::shell
