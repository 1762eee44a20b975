// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QPushButton>
#include <QVBoxLayout>
#include <memory>

#include "core/handlers.h"
#include "core/ports/help_viewer.h"
#include "core/ports/timer.h"
#include "timing/alarm_entry_frame.h"
#include "timing/alarms_panel.h"
#include "timing/tool_table.h"

namespace tickwell::timing {

inline constexpr int kHelpAlarms = 35;  ///< the topic of the help

/// What the window of the alarms uses; all outlive it.
struct AlarmsWindowParts {
    AlarmsPanel& panel;
    const TimerSounds& sounds;
    const Clock& clock;
    TimerSource& timers;
    Handlers& handlers;
    HelpViewer& help;
    std::function<void()> changed;  ///< called after the user has changed an alarm
};

/// The window of the alarms, 「アラーム一覧」: their list, and a frame in which one is set. Only a view: they
/// ring after it is closed as well.
class AlarmsForm : public QDialog {
    Q_OBJECT

public:
    AlarmsForm(const AlarmsWindowParts& parts, QWidget* parent);

    /// Makes a window that is too high for its screen scroll. To be called before it is shown.
    void MakeRoom();

    /// Shows the window, or brings it to the front if it is open.
    void BringUp();

    /// Updates the list to the state; what is being set in the frame stays.
    void RefreshForm();

    void done(int result) override;

private:
    QPushButton* AlarmButton(int index, const QString& caption, std::function<void()> clicked);
    void LayOut();
    void ShowActions();
    void ShowEntry();
    void Act(const std::function<void()>& action);
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();

    AlarmsWindowParts m_parts;
    ToolTable* m_table;  // the controls are owned by the window
    QCheckBox* m_isOn;
    QCheckBox* m_skip;
    AlarmEntryFrame* m_entry;
    QPushButton* m_add;
    QPushButton* m_change;
    QPushButton* m_remove;
    QPushButton* m_helpButton;
    QPushButton* m_closeButton;
    QVBoxLayout* m_allRows = nullptr;
    std::unique_ptr<Timer> m_refresh;  // runs while the window is open
};

}  // namespace tickwell::timing
