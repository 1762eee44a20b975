// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/cd_lines.h"

namespace tickwell::media {

namespace {

/// Wipes in the text unless it is already shown.
void Bring(TextLine& line, const QString& text) {
    if (line.Text() != text) {
        line.ShowText(text);
    }
}

}  // namespace

CdLines::CdLines(CdPlayer& player, TextLines lines, const DisplayFunctions& functions)
    : m_player(player), m_lines(lines), m_functions(functions) {
    m_player.SetDisplay(this);
}

void CdLines::Show() {
    m_hasStarted = true;
    m_isBlank = false;
    m_player.Appear();
    m_player.ShowLines();
}

void CdLines::Tick() {
    const qint32 state = m_player.State().CdState;
    m_isBlank = state == kCdPaused && !m_isBlank;
    if (!IsShown() || (state != kCdPlaying && state != kCdPaused)) {
        return;
    }
    if (m_isBlank) {
        m_lines.lower.SetText(QString());
    } else if (const auto text = m_player.Texts().StatusText()) {
        m_lines.lower.SetText(*text);
        if (const QString upper = m_player.Texts().UpperText(); upper != m_upper) {  // of the next track
            ShowUpper(upper);
        }
    }
}

bool CdLines::IsShown() const {
    return m_hasStarted && m_functions.GetFuncNumber() == kFunctionCd;
}

void CdLines::ShowUpper(const QString& text) {
    m_upper = text;
    Bring(m_lines.upper, text);
}

void CdLines::ShowLower(const QString& text) {
    Bring(m_lines.lower, text);
}

}  // namespace tickwell::media
