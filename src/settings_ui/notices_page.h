// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

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

private:
    // Owned by the page
    QuietFrame* m_quiet;
    VolumeFrame* m_volume;
};

}  // namespace tickwell::settings_ui
