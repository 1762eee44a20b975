// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace tickwell {

/// The size of the help's text, in steps around that of the desktop.
class TextSize {
public:
    /// At the ends of the scale the size stays.
    void Grow();
    void Shrink();
    void Reset();

    bool IsLargest() const;
    bool IsSmallest() const { return m_step == 0; }

    /// Of the desktop's size, 50 to 300.
    int Percent() const;

private:
    qsizetype m_step = 4;
};

}  // namespace tickwell
