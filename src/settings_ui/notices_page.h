// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QWidget>
#include <vector>

#include "settings_ui/day_notices_frame.h"
#include "settings_ui/quiet_frame.h"
#include "settings_ui/settings_draft.h"
#include "settings_ui/settings_parts.h"
#include "settings_ui/volume_frame.h"

namespace tickwell::settings_ui {

/// Page "お知らせ" of the settings: what is told, and how. Each subject has a frame.
class NoticesPage : public QWidget {
    Q_OBJECT

public:
    /// The references in the parts and the draft outlive this object.
    NoticesPage(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent);

    void Form_Load();

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* MakeCountdownFrame(Handlers& handlers);

    SettingsOperations m_operations;
    SettingsDraft& m_draft;
    // Owned by the page
    QLabel* m_trouble;  // shown if the desktop has no notices
    DayNoticesFrame* m_days;
    std::vector<QCheckBox*> m_countdown;
    QuietFrame* m_quiet = nullptr;
    VolumeFrame* m_volume = nullptr;
};

}  // namespace tickwell::settings_ui
