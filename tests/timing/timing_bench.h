// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QPushButton>

#include "platform/time/virtual_time.h"
#include "support/borrowed.h"
#include "support/fake_help_viewer.h"
#include "support/fake_message_boxes.h"
#include "support/fake_printer.h"
#include "support/window.h"
#include "timing/journal.h"
#include "timing/timing_displays.h"

namespace tickwell::timing {

/// All dependencies of stopwatch and countdown, faked; the object itself acts as the main window.
struct TimingBench : public DisplayFunctions {
    platform::VirtualTime time{QDateTime(QDate(1998, 11, 15), QTime(21, 5, 7)), 307'000};
    FakeMessageBoxes boxes;
    Handlers handlers{boxes};
    FakePrinter printer;
    FakeHelpViewer help;
    Journal journal;
    JournalLine upper{journal, QStringLiteral("upper")};
    JournalLine lower{journal, QStringLiteral("lower")};
    StopwatchState stopwatch;
    CountdownState countdown;
    FurtherSettings further;
    QStringList commands;
    std::function<void()> enterFolder = [this] { commands.append(QStringLiteral("folder")); };
    bool isSilent = false;
    int placed = 0;
    int placedWidth = 0;  ///< of the last placed window
    qint32 function = kFunctionStopwatch;
    TimingTools tools{{.stopwatch = stopwatch,
                       .countdown = countdown,
                       .further = further,
                       .clock = time,
                       .timers = time,
                       .handlers = handlers,
                       .boxes = boxes,
                       .printer = printer,
                       .help = help,
                       .enterFolder = [this] { enterFolder(); },
                       .sendCommand = [this](const QString& command) { commands.append(command); },
                       .isSilent = [this] { return isSilent; },
                       .place = [this](QWidget& window) { Place(window); },
                       .version = QStringLiteral("2.0.0")},
                      {.lines = {.upper = upper, .lower = lower}, .functions = *this}};
    StopwatchDisplay stopwatchDisplay{Borrowed(tools)};
    CountdownDisplay countdownDisplay{Borrowed(tools)};

    void ChangeFunction(qint32 number) override {
        function = number;
        stopwatchDisplay.Hide();
        countdownDisplay.Hide();
        if (number == kFunctionStopwatch) {
            stopwatchDisplay.Show();
        } else if (number == kFunctionTimer) {
            countdownDisplay.Show();
        }
    }
    qint32 GetFuncNumber() const override { return function; }

    /// Adjusts the size of a window that was never shown, as the program does.
    void Place(QWidget& window) {
        ++placed;
        if (!window.testAttribute(Qt::WA_Resized)) {
            window.adjustSize();
        }
        placedWidth = window.width();
    }

    /// An existing window of this class; null if there is none.
    template <typename Window>
    static Window* Find() {
        return FindWindow<Window>();
    }
    template <typename Window>
    Window& The() const {
        return WindowOf<Window>();
    }
    template <typename Window, typename Control>
    Control& The(const char* name) const {
        return ChildOf<Control>(The<Window>(), QString::fromLatin1(name));
    }
    template <typename Window>
    void Press(const char* button) const {
        The<Window, QPushButton>(button).click();
    }
};

}  // namespace tickwell::timing
