// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

namespace tickwell {

/// The places a reader jumped from, as positions in the text. Each step is told where the reader stands, so
/// that going back returns to where they had scrolled to, not to where they had once arrived.
class HelpHistory {
public:
    /// The reader jumps from one place to another: there is a way back, and none forward.
    void Jump(int from, int to);

    bool CanGoBack() const { return !m_back.isEmpty(); }
    bool CanGoForward() const { return !m_forward.isEmpty(); }

    /// The place to go to. Where there is none, the reader stays at `from`.
    int Back(int from) { return Step(m_back, m_forward, from); }
    int Forward(int from) { return Step(m_forward, m_back, from); }

private:
    static int Step(QList<int>& there, QList<int>& behind, int from);

    QList<int> m_back;
    QList<int> m_forward;
};

}  // namespace tickwell
