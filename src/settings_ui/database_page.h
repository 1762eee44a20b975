// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QPushButton>
#include <QWidget>

#include "settings_ui/settings_parts.h"

namespace tickwell {

/// Page "データベース" of the settings: compacts the day database, at once and for good. While that runs, the
/// button is disabled and a text beside it says so.
class DatabasePage : public QWidget {
    Q_OBJECT

public:
    /// All outlive it.
    DatabasePage(const SettingsParts& parts, QWidget* parent);

private:
    void Command4_Click();
    void SetRunning(bool isRunning);

    const SettingsParts& m_parts;
    QPushButton* m_Command4;
    QLabel* m_progress;
    bool m_takesFocusBack = false;  // a disabled button loses the keyboard focus
};

}  // namespace tickwell
