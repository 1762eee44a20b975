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

namespace tickwell {

/// What the timer window uses; all outlive it.
struct TimerWindowParts {
    TimerPanel& panel;
    Handlers& handlers;
    HelpViewer& help;
};

/// The timer window: sets and starts the countdown. Only a view: the countdown continues after it is closed.
class TimerForm : public QDialog {
    Q_OBJECT

public:
    TimerForm(const TimerWindowParts& parts, QWidget* parent);

    /// Shows the window, or brings it to the front if it is open.
    void BringUp();

    /// Updates the window to the state: the entry, the enabled controls, and the caption of Command1.
    void RefreshForm();

private:
    void Name();
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
    bool m_Updating = false;  // the form itself changes the entry: do not read it back
    QGroupBox* m_Frame1;      // the controls are owned by the window
    QSpinBox* m_UpDown1;      // each with a text field, Text1 to Text3
    QSpinBox* m_UpDown2;
    QSpinBox* m_UpDown3;
    QLabel* m_Label1;
    QLabel* m_Label2;
    QLabel* m_Label3;
    QCheckBox* m_Check1;
    QPushButton* m_Command1;
    QPushButton* m_Command2;
    QPushButton* m_Command3;
};

}  // namespace tickwell
