// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QSlider>
#include <vector>

#include "controls/number_box.h"
#include "settings_ui/option_array.h"
#include "settings_ui/see_through_frame.h"
#include "settings_ui/settings_draft.h"
#include "settings_ui/settings_parts.h"
#include "settings_ui/zone_frame.h"

namespace tickwell::settings_ui {

/// Page 窓: appearance and position of the main window, and the keyboard.
class FacePage : public QWidget {
    Q_OBJECT

public:
    /// The references in the parts and the draft outlive the page.
    FacePage(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent);

    /// Shows the draft.
    void Form_Load();

    /// The time zone frame, whose input can be invalid.
    ZoneFrame& Zone() const { return *m_zone; }

private:
    QWidget* MakeLookFrame();
    QWidget* MakePlaceFrame();
    QWidget* MakeKeyboardFrame();
    void MakeOpacity();
    void Slider2_Change(int percent);
    void UpDown2_Change(int percent);
    void Check17_Click();
    void Option11_Click(qint32 index);

    SettingsParts m_parts;
    SettingsDraft& m_draft;
    QSlider* m_opacity;
    controls::NumberBox* m_percent;
    QCheckBox* m_marksLongText;
    OptionArray m_longTextOptions;
    SeeThroughFrame* m_seeThrough = nullptr;
    std::vector<QCheckBox*> m_placeChecks;
    ZoneFrame* m_zone = nullptr;
    std::vector<QCheckBox*> m_keyboardChecks;
    qint32 m_chosenLongText = 1;  // the selected option, remembered while the check box is off
};

}  // namespace tickwell::settings_ui
