// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>

#include "settings_ui/option_array.h"
#include "settings_ui/settings_draft.h"
#include "settings_ui/settings_parts.h"

namespace tickwell::settings_ui {

/// Frame 透過 of page 窓: transparent background, and clicks that pass through.
class SeeThroughFrame : public QGroupBox {
    Q_OBJECT

public:
    /// The references in the parts and the draft outlive the frame.
    SeeThroughFrame(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent);

    /// Shows the draft.
    void Form_Load();

private:
    QLayout* MakeOutline();
    void Check19_Click();
    void Check20_Click();
    void AskForClickThrough();
    void ChooseClickThrough(bool passes, bool withoutIcon);

    SettingsParts m_parts;
    SettingsDraft& m_draft;
    QCheckBox* m_transparent;
    QLabel* m_outlineLabel;
    OptionArray m_outlines;
    QCheckBox* m_passesClicks = nullptr;
};

}  // namespace tickwell::settings_ui
