// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/announcer.h"
#include "help/help_browser.h"
#include "help/help_page.h"

namespace tickwell::help {

/// Lets a screen reader say what the help shows while its text has the keyboard focus: the section that is
/// jumped or scrolled to, and the link that is reached by Tab. Qt reports neither for a text without a
/// cursor.
class HelpReader : public QObject {
public:
    /// `text` owns this object; `page` outlives it.
    HelpReader(HelpBrowser& text, const HelpPage& page);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ReadSection();

    HelpBrowser& m_text;
    const HelpPage& m_page;
    controls::Announcer m_announcer;
    int m_section = kNone;  // the last one that was read, as in HelpPage::HeadingAt

    static constexpr int kNone = -2;
};

}  // namespace tickwell::help
