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
    std::optional<bool> startsAtLogin = std::nullopt;  ///< nullopt if the user has not clicked the box

    /// Copies everything back except the display function: no control of the dialog edits it, and the roll
    /// may have changed it in the meantime.
    void ApplyTo(AppSettings& appSettings, FurtherSettings& furtherSettings) const;

    /// Adds a display to the roll or removes it.
    void ChooseForRoll(qint32 function, bool chosen);
};

}  // namespace tickwell::settings_ui
