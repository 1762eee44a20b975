// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <QWidget>
#include <vector>

#include "settings_ui/settings_draft.h"
#include "settings_ui/settings_parts.h"

namespace tickwell::settings_ui {

/// Page "動作" of the settings: the corrections, each with its own check box.
class CorrectionsPage : public QWidget {
    Q_OBJECT

public:
    /// All references outlive this object.
    CorrectionsPage(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent);

    void Form_Load();

private:
    SettingsDraft& m_draft;
    std::vector<QCheckBox*> m_checks;  // by the rows of CorrectionFlags; owned by the page
};

}  // namespace tickwell::settings_ui
