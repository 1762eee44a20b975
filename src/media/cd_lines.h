// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/display_function.h"
#include "core/text_line.h"
#include "media/cd_player.h"

namespace tickwell {

/// The CD player on the main window's lines, which are its own only while function 6 is shown.
class CdLines : public CdDisplay {
public:
    /// All outlive this object. While it lives the player writes to these lines.
    CdLines(CdPlayer& player, TextLines lines, const DisplayFunctions& functions);
    CdLines(const CdLines&) = delete;
    CdLines& operator=(const CdLines&) = delete;
    ~CdLines() override { m_player.SetDisplay(nullptr); }

    /// The function was chosen: the texts come in with a wipe, and a disc is looked for.
    void Show();

    /// CDTimer2: the reading while it plays; while it is paused the reading blinks, gone first.
    void Tick();

    bool IsShown() const override;
    void ShowUpper(const QString& text) override;
    void ShowLower(const QString& text) override;

private:
    CdPlayer& m_player;
    TextLines m_lines;
    const DisplayFunctions& m_functions;
    bool m_hasStarted = false;  // the stored function is known long before it is shown
    bool m_isBlank = false;     // the half of the blink that shows nothing
};

}  // namespace tickwell
