// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/settings_draft.h"

#include <algorithm>

namespace tickwell::settings_ui {

void SettingsDraft::ApplyTo(AppSettings& appSettings, FurtherSettings& furtherSettings) const {
    const qint32 shown = appSettings.function;
    appSettings = settings;
    appSettings.function = shown;
    furtherSettings = further;
}

void SettingsDraft::ChooseForRoll(qint32 function, bool chosen) {
    QList<qint32>& kinds = further.roll.kinds;
    kinds.removeAll(function);
    if (chosen) {
        kinds.insert(std::lower_bound(kinds.begin(), kinds.end(), function), function);
    }
}

}  // namespace tickwell::settings_ui
