// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "core/settings.h"

namespace tickwell::settings_ui {

/// The copies that the settings dialog edits. They are copied to the program's settings when applied, or
/// discarded with the dialog. A value whose control was not used keeps its stored value, even if no control
/// can show it.
struct SettingsDraft {
    AppSettings settings;
    FurtherSettings further;
    FurtherSettings opened = further;  ///< what the dialog began with, later what was applied last
    std::optional<bool> startsAtLogin = std::nullopt;  ///< nullopt if the user has not clicked the box

    /// Copies everything back except the display function: no control of the dialog edits it, and the roll
    /// may have changed it in the meantime. Of the further settings only the edited ones are copied: the
    /// others may have changed too, for example by the menu of the icon in the notification area.
    void ApplyTo(AppSettings& appSettings, FurtherSettings& furtherSettings);

    /// Adds a display to the roll or removes it.
    void ChooseForRoll(qint32 function, bool chosen);
};

}  // namespace tickwell::settings_ui
