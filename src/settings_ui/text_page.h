// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <QPushButton>
#include <QSlider>
#include <QWidget>

#include "settings_ui/option_array.h"
#include "settings_ui/sample_frame.h"
#include "settings_ui/settings_draft.h"
#include "settings_ui/settings_parts.h"

namespace tickwell::settings_ui {

/// Page "文字表示" of the settings: wipe, speed, fonts and colours of the lines with a live sample, and
/// whether the program starts at login.
class TextPage : public QWidget {
    Q_OBJECT

public:
    /// All references outlive this object.
    TextPage(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent);

    /// Shows the draft and starts the sample.
    void Form_Load();

private:
    QWidget* MakeWipeFrame();
    QWidget* MakeSpeedFrame();
    QCheckBox* MakeAutostart();
    QLayout* MakeButtons();
    void Option2_Click(qint32 index);
    void Slider1_Change();
    void Command5_Click();
    void Command6_Click();
    void Command7_Click();
    void PickStyle(const QString& title, LineStyle& style);
    void RefreshSample() { m_sample->Refresh(m_draft.settings); }

    SettingsParts m_parts;
    SettingsDraft& m_draft;
    OptionArray m_wipeOptions;
    QSlider* m_speed;  // these are owned by the page
    SampleFrame* m_sample;
    QCheckBox* m_autostart = nullptr;
};

}  // namespace tickwell::settings_ui
