// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

#include "core/handlers.h"
#include "core/ports/help_viewer.h"
#include "timing/timer_panel.h"

namespace tickwell::timing {

/// What the timer window uses; all outlive it.
struct TimerWindowParts {
    TimerPanel& panel;
    Handlers& handlers;
    HelpViewer& help;
    std::function<void()> openList = [] {};    ///< opens the window of all timers
    std::function<void()> openAlarms = [] {};  ///< opens the window of the alarms
};

/// The timer window: sets and starts the countdown. Only a view: the countdown continues after it is closed.
class TimerForm : public QDialog {
    Q_OBJECT

public:
    TimerForm(TimerWindowParts parts, QWidget* parent);

    /// Shows the window, or brings it to the front if it is open.
    void BringUp();

    /// Updates the window to the state: the entry, the enabled controls, and the caption of the start button.
    void RefreshForm();

private:
    void LayOut();
    void AddEntry(QHBoxLayout& row, QSpinBox& box, int largest, QLabel& label);
    void ReadEntries();
    void Show(const TimerEntry& entry);
    TimerEntry Entry() const;
    void TakeTyped();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Check1_Click();

    TimerWindowParts m_parts;
    bool m_isUpdating = false;   // the form itself changes the entry: do not read it back
    QGroupBox* m_durationFrame;  // the controls are owned by the window
    QSpinBox* m_hours;
    QSpinBox* m_minutes;
    QSpinBox* m_seconds;
    QLabel* m_hoursLabel;
    QLabel* m_minutesLabel;
    QLabel* m_secondsLabel;
    QCheckBox* m_repeat;
    QPushButton* m_startButton;
    QPushButton* m_resetButton;
    QPushButton* m_listButton;
    QPushButton* m_alarmsButton;
    QPushButton* m_helpButton;
};

}  // namespace tickwell::timing
