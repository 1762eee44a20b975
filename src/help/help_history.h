// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

namespace tickwell::help {

/// The positions that the reader jumped from. Every step is passed the current position, so that going back
/// returns to where the reader had scrolled to, not to where a jump had ended.
class HelpHistory {
public:
    /// The reader jumps from one position to another: adds a step back and clears the steps forward.
    void Jump(int from, int to);

    bool CanGoBack() const { return !m_back.isEmpty(); }
    bool CanGoForward() const { return !m_forward.isEmpty(); }

    /// The position to go to; `from` if there is none.
    int Back(int from) { return Step(m_back, m_forward, from); }
    int Forward(int from) { return Step(m_forward, m_back, from); }

private:
    static int Step(QList<int>& there, QList<int>& behind, int from);

    QList<int> m_back;
    QList<int> m_forward;
};

}  // namespace tickwell::help
