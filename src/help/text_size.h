// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace tickwell::help {

/// The size of the help text, in steps around the desktop's size.
class TextSize {
public:
    /// At the ends of the scale, Grow and Shrink do nothing.
    void Grow();
    void Shrink();
    void Reset();

    bool IsLargest() const;
    bool IsSmallest() const { return m_step == 0; }

    /// Percentage of the desktop's size, 50 to 300.
    int Percent() const;

private:
    qsizetype m_step = 4;
};

}  // namespace tickwell::help
