// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <QWidget>
#include <vector>

#include "settings_ui/settings_draft.h"
#include "settings_ui/settings_parts.h"

namespace tickwell::settings_ui {

/// Page "連携" of the settings: what other programs may do, and the CD player.
class RemotePage : public QWidget {
    Q_OBJECT

public:
    /// The references in the parts and the draft outlive the page.
    RemotePage(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent);

    void Form_Load();

private:
    QWidget* MakeCommandsFrame();
    QWidget* MakeCdFrame();

    SettingsDraft& m_draft;
    // By the rows of RemoteFlags and CdFlags; owned by the page
    std::vector<QCheckBox*> m_checks;
    std::vector<QCheckBox*> m_cdChecks;
};

}  // namespace tickwell::settings_ui
