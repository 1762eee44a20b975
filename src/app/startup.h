// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <optional>

#include "core/ports/settings_store.h"
#include "core/settings.h"
#include "store/day_database.h"
#include "store/jet/jet_import.h"

namespace tickwell {

/// What start-up fills for the rest of the run.
struct Started {
    std::unique_ptr<SettingsStore> store;
    std::unique_ptr<DayDatabase> dayDatabase;
    AppSettings settings;
    FurtherSettings further;
    std::optional<JetImportSummary> imported;  ///< what came out of a day database of the older kind, once
};

/// The start-up up to the first window, strictly in this order: into the program's folder, what a compaction
/// that was ended left there, the eight files, the day database, the settings. Throws RunTimeError at the
/// first thing that is wrong, with what to tell the user; what comes after it is not looked at.
Started StartUp(const QString& folder, const std::function<std::unique_ptr<SettingsStore>()>& openStore);

/// The text of the box that ends a failed start-up.
QString StartUpFailureText(const QString& reason);

}  // namespace tickwell
