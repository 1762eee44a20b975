// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>

#include "core/display_function.h"
#include "core/ports/timer.h"
#include "core/text_line.h"

namespace tickwell::timing {

/// The main window's lines for the windows of stopwatch and timer, which write to them whatever function is
/// shown. A text written while another function is shown is temporary: two seconds after the last one, the
/// replaced texts are restored, except on a line that has changed since. While the clock is shown nothing is
/// restored: its own timers update its lines.
class TemporaryTexts {
public:
    /// The references outlive this object. `onWritten` is called after each temporary text: the timer of the
    /// shown function may be sleeping and must check its lines again.
    TemporaryTexts(TextLines lines, const DisplayFunctions& functions, TimerSource& timers,
                   std::function<void()> onWritten);
    TemporaryTexts(const TemporaryTexts&) = delete;
    TemporaryTexts& operator=(const TemporaryTexts&) = delete;

    /// The lines for the stopwatch window and the timer window; owned by this object.
    TextLines ForStopwatch() { return {m_stopwatchUpper, m_stopwatchLower}; }
    TextLines ForTimer() { return {m_timerUpper, m_timerLower}; }

    /// Another function was chosen and wrote the lines: nothing is restored.
    void Forget();

private:
    /// A line of the main window and the text that a temporary text on it has replaced.
    struct Line {
        TextLine& line;
        QString replaced;
        QString written;
        bool isTemporary = false;
    };

    /// A line of the main window for one tool.
    class ToolLine : public TextLine {
    public:
        ToolLine(TemporaryTexts& texts, Line& line, qint32 tool)
            : m_texts(texts), m_line(line), m_tool(tool) {}

        void ShowText(const QString& text) override;
        void SetText(const QString& text) override;
        QString Text() const override { return m_line.line.Text(); }

    private:
        TemporaryTexts& m_texts;
        Line& m_line;
        qint32 m_tool;
    };

    using TextOperation = void (TextLine::*)(const QString&);
    void Write(Line& line, qint32 tool, TextOperation operation, const QString& text);
    void Restore();

    const DisplayFunctions& m_functions;
    std::function<void()> m_onWritten;
    Line m_upper;
    Line m_lower;
    ToolLine m_stopwatchUpper{*this, m_upper, kFunctionStopwatch};
    ToolLine m_stopwatchLower{*this, m_lower, kFunctionStopwatch};
    ToolLine m_timerUpper{*this, m_upper, kFunctionTimer};
    ToolLine m_timerLower{*this, m_lower, kFunctionTimer};
    std::unique_ptr<Timer> m_timer;  // runs while a temporary text is shown
};

}  // namespace tickwell::timing
