// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/display.h"
#include "core/settings.h"
#include "displays/function_marks.h"

namespace tickwell::displays {

/// Switches the function that the main window shows.
class FunctionSwitch {
public:
    /// All outlive this object.
    FunctionSwitch(AppSettings& settings, TextLines lines, FunctionMarks& marks, const Displays& displays);

    /// Any number is stored. One that names no display stops all timers and leaves the lines unchanged.
    /// Throws RunTimeError if the first texts cannot be shown.
    void ChangeFunction(qint32 number);

    /// Null for a stored number that names no display.
    Display* Shown() const { return FindDisplay(m_displays, m_settings.function); }

private:
    AppSettings& m_settings;
    TextLines m_lines;
    FunctionMarks& m_marks;
    const Displays& m_displays;
};

}  // namespace tickwell::displays
