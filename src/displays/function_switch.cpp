// SPDX-License-Identifier: GPL-3.0-or-later
#include "displays/function_switch.h"

namespace tickwell::displays {

FunctionSwitch::FunctionSwitch(AppSettings& settings, TextLines lines, FunctionMarks& marks,
                               const Displays& displays)
    : m_settings(settings), m_lines(lines), m_marks(marks), m_displays(displays) {}

void FunctionSwitch::ChangeFunction(qint32 number) {
    m_settings.function = number;  // first: even a number that names no display is stored
    for (const auto& display : m_displays) {
        display->Hide();
    }
    Display* const shown = Shown();
    m_marks.CheckFunction(number);
    m_marks.EnableOperation(shown == nullptr || shown->Traits().hasOperationItem);
    if (shown == nullptr) {
        return;
    }
    if (!shown->Traits().title.isEmpty()) {
        m_lines.upper.ShowText(shown->Traits().title.toString());
    }
    shown->Show();
}

}  // namespace tickwell::displays
