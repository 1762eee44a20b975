// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "core/settings.h"

namespace tickwell {

/// What the settings dialog edits: copies, which reach the program's settings when they are applied and are
/// dropped with the dialog. What no control was moved for stays as it was stored, also where no control could
/// show it.
struct SettingsDraft {
    AppSettings settings;
    FurtherSettings further;
    std::optional<bool> startsAtLogin =
        std::nullopt;  ///< what the user chose; nothing where the box was left alone

    /// Copies all back but the display function: the roll may have changed it meanwhile, and no control here
    /// does.
    void ApplyTo(AppSettings& appSettings, FurtherSettings& furtherSettings) const;

    /// Takes a display into the roll, or out of it.
    void ChooseForRoll(qint32 function, bool chosen);
};

}  // namespace tickwell
