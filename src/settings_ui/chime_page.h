// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QWidget>

#include "settings_ui/option_array.h"
#include "settings_ui/settings_draft.h"
#include "settings_ui/settings_parts.h"

namespace tickwell::settings_ui {

/// Page "時報" of the settings: the chime, and the message that the user has turned off.
class ChimePage : public QWidget {
    Q_OBJECT

public:
    /// All references outlive this object.
    ChimePage(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent);

    void Form_Load();

private:
    QWidget* MakeSoundFrame();
    QWidget* MakeNoticeFrame();
    void Combo1_Click();
    void EnableListen();

    SettingsParts m_parts;
    SettingsDraft& m_draft;
    OptionArray m_modeOptions;
    QComboBox* m_sounds;  // these are owned by the page
    QPushButton* m_listen;
    QCheckBox* m_tellsNoCdDrive;
};

}  // namespace tickwell::settings_ui
