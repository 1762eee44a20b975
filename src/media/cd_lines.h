// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/display_function.h"
#include "core/text_line.h"
#include "media/cd_player.h"

namespace tickwell::media {

/// Shows the CD player on the main window's lines, while function 6 is shown.
class CdLines : public CdDisplay {
public:
    /// All outlive this object. Registers itself as the player's display for its lifetime.
    CdLines(CdPlayer& player, TextLines lines, const DisplayFunctions& functions);
    CdLines(const CdLines&) = delete;
    CdLines& operator=(const CdLines&) = delete;
    ~CdLines() override { m_player.SetDisplay(nullptr); }

    /// Called when the function is chosen: wipes in the texts and looks for a disc.
    void Show();

    /// Tick of CDTimer2. While the disc plays, shows the reading; while it is paused, the reading blinks,
    /// starting with blank.
    void Tick();

    bool IsShown() const override;
    void ShowUpper(const QString& text) override;
    void ShowLower(const QString& text) override;

private:
    CdPlayer& m_player;
    TextLines m_lines;
    const DisplayFunctions& m_functions;
    QString m_upper;            // the upper text that was written last
    bool m_hasStarted = false;  // Show() was called; until then GetFuncNumber() returns the stored display
    bool m_isBlank = false;     // the blank phase of the blinking
};

}  // namespace tickwell::media
