// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QPushButton>
#include <QWidget>

#include "settings_ui/settings_draft.h"
#include "settings_ui/settings_parts.h"
#include "settings_ui/sync_frame.h"

namespace tickwell::settings_ui {

/// Page "データベース" of the settings: compacts the day database immediately, which cancelling the dialog
/// does not undo. In the meantime the button is disabled, and a text beside it says so. Below it are the
/// settings of the merge with other computers.
class DatabasePage : public QWidget {
    Q_OBJECT

public:
    /// All references outlive this object; `parts` is not copied.
    DatabasePage(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent);

    /// Shows the draft.
    void Form_Load() { m_syncFrame->Form_Load(); }

private:
    void Command4_Click();
    void SetRunning(bool isRunning);

    const SettingsParts& m_parts;
    QPushButton* m_compactButton;
    QLabel* m_progress;
    SyncFrame* m_syncFrame;
    bool m_takesFocusBack = false;  // the button had the keyboard focus when it was disabled
};

}  // namespace tickwell::settings_ui
