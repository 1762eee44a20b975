// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/temporary_texts.h"

#include <utility>

namespace tickwell::timing {

namespace {

constexpr int kStay = 2000;  // ms

}  // namespace

TemporaryTexts::TemporaryTexts(TextLines lines, const DisplayFunctions& functions, TimerSource& timers,
                               std::function<void()> onWritten)
    : m_functions(functions),
      m_onWritten(std::move(onWritten)),
      m_upper{lines.upper, {}, {}, false},
      m_lower{lines.lower, {}, {}, false},
      m_timer(timers.Create(kStay, [this] { Restore(); })) {}

void TemporaryTexts::Forget() {
    m_timer->Stop();
    m_upper.isTemporary = false;
    m_lower.isTemporary = false;
}

void TemporaryTexts::Restore() {
    m_timer->Stop();
    for (Line* each : {&m_upper, &m_lower}) {
        if (each->isTemporary && each->line.Text() == each->written) {
            each->line.ShowText(each->replaced);
        }
        each->isTemporary = false;
    }
}

void TemporaryTexts::Write(Line& line, qint32 tool, TextOperation operation, const QString& text) {
    const qint32 shown = m_functions.GetFuncNumber();
    if (shown == tool) {
        (line.line.*operation)(text);
        return;
    }
    // The clock updates both lines with its own timers: the lower one within a second, the upper one when its
    // next text is due.
    if (shown != kFunctionClock) {
        const QString before = line.line.Text();
        if (!line.isTemporary || before != line.written) {
            line.replaced = before;
        }
        line.written = text;
        line.isTemporary = true;
        m_timer->Stop();
        m_timer->Start();
    }
    (line.line.*operation)(text);
    m_onWritten();
}

void TemporaryTexts::ToolLine::ShowText(const QString& text) {
    m_texts.Write(m_line, m_tool, &TextLine::ShowText, text);
}

void TemporaryTexts::ToolLine::SetText(const QString& text) {
    m_texts.Write(m_line, m_tool, &TextLine::SetText, text);
}

}  // namespace tickwell::timing
