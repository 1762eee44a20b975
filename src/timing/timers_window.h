// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QGridLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <memory>

#include "core/handlers.h"
#include "core/ports/help_viewer.h"
#include "core/ports/timer.h"
#include "timing/timer_entry_frame.h"
#include "timing/timers_panel.h"
#include "timing/tool_table.h"

namespace tickwell::timing {

inline constexpr int kHelpTimers = 34;  ///< the topic of the help

/// What the window of all timers uses; all outlive it.
struct TimersWindowParts {
    TimersPanel& panel;
    const TimerSounds& sounds;
    TimerSource& timers;
    Handlers& handlers;
    HelpViewer& help;
    std::function<void()> changed;  ///< called after the user has changed a timer
};

/// The window of all timers, 「タイマー一覧」. Only a view: the timers continue after it is closed.
class TimersForm : public QDialog {
    Q_OBJECT

public:
    TimersForm(const TimersWindowParts& parts, QWidget* parent);

    /// Makes a window that is too high for its screen scroll. To be called before it is shown.
    void MakeRoom();

    /// Shows the window, or brings it to the front if it is open.
    void BringUp();

    /// Updates the window to the state.
    void RefreshForm();

    void done(int result) override;

private:
    void LayOut();
    QHBoxLayout* RowButtons();
    QHBoxLayout* AddingButtons();
    QPushButton* ActionButton(int index, const QString& caption, const std::function<void(qint64)>& action);
    void MakePresets();
    QPushButton* PresetButton(const TimerPreset& preset, int index);
    void OpenPresetMenu(QPoint point, qint64 preset);
    void ShowActions();
    void Act(const std::function<void()>& action);
    void AskPresetName();

    TimersWindowParts m_parts;
    ToolTable* m_table;  // the controls are owned by the window
    TimerEntryFrame* m_entry;
    QVBoxLayout* m_allRows = nullptr;
    QGroupBox* m_presetFrame;
    QGridLayout* m_presets;
    QPushButton* m_start;
    QPushButton* m_pause;
    QPushButton* m_reset;
    QPushButton* m_remove;
    QPushButton* m_add;
    QPushButton* m_keep;
    QPushButton* m_helpButton;
    QPushButton* m_closeButton;
    QList<TimerPreset> m_shownPresets;
    std::unique_ptr<Timer> m_seconds;  // runs while the window is open
};

}  // namespace tickwell::timing
