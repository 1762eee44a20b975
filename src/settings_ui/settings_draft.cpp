// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/settings_draft.h"

#include <algorithm>

#include "core/setting_keys.h"

namespace tickwell::settings_ui {

namespace {

/// Copies the values of `edited` that differ from `before`.
void CopyEdited(const FurtherSettings& edited, const FurtherSettings& before, FurtherSettings& target) {
    StoredSettings from{{}, {}, edited};
    StoredSettings old{{}, {}, before};
    StoredSettings to{{}, {}, target};
    for (const SettingKey& key : FurtherKeys()) {
        std::visit(
            [&](auto* field) {
                const auto* const value = std::get<decltype(field)>(key.field(from));
                if (*value != *std::get<decltype(field)>(key.field(old))) {
                    *field = *value;
                }
            },
            key.field(to));
    }
    target = to.further;
}

}  // namespace

void SettingsDraft::ApplyTo(AppSettings& appSettings, FurtherSettings& furtherSettings) {
    const qint32 shown = appSettings.function;
    appSettings = settings;
    appSettings.function = shown;
    CopyEdited(further, opened, furtherSettings);
    opened = further;
}

void SettingsDraft::ChooseForRoll(qint32 function, bool chosen) {
    QList<qint32>& kinds = further.roll.kinds;
    kinds.removeAll(function);
    if (chosen) {
        kinds.insert(std::lower_bound(kinds.begin(), kinds.end(), function), function);
    }
}

}  // namespace tickwell::settings_ui
