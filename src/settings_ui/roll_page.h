// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <QGroupBox>
#include <QSpinBox>
#include <QWidget>
#include <map>

#include "settings_ui/option_array.h"
#include "settings_ui/settings_draft.h"
#include "settings_ui/settings_parts.h"

namespace tickwell::settings_ui {

/// Page "ロール" of the settings: which displays rotate, and how fast.
class RollPage : public QWidget {
    Q_OBJECT

public:
    /// All references outlive this object.
    RollPage(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent);

    void Form_Load();

private:
    QWidget* MakeFrame(const Displays& displays);
    void MakeInterval();
    void Option1_Click(qint32 index);
    void ShowUse();

    Handlers& m_handlers;
    SettingsDraft& m_draft;
    OptionArray m_useOptions;
    QGroupBox* m_frame;                     // these are owned by the page
    std::map<qint32, QCheckBox*> m_checks;  // by the number of the display
    QSpinBox* m_interval = nullptr;
};

}  // namespace tickwell::settings_ui
