// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "core/settings.h"

namespace tickwell::settings_ui {

/// The copies that the settings dialog edits. They are copied to the program's settings when applied, or
/// dropped with the dialog. A value whose control was not used stays as stored, even if no control could show
/// it.
struct SettingsDraft {
    AppSettings settings;
    FurtherSettings further;
    std::optional<bool> startsAtLogin =
        std::nullopt;  ///< the user's choice; nothing if the box was not clicked

    /// Copies everything back except the display function: the roll may have changed it meanwhile, and no
    /// control here edits it.
    void ApplyTo(AppSettings& appSettings, FurtherSettings& furtherSettings) const;

    /// Adds a display to the roll or removes it.
    void ChooseForRoll(qint32 function, bool chosen);
};

}  // namespace tickwell::settings_ui
