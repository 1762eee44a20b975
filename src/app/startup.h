// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <optional>

#include "core/ports/settings_store.h"
#include "core/program_folder.h"
#include "core/settings.h"
#include "store/day_database.h"
#include "store/jet/jet_import.h"

namespace tickwell::app {

/// The results of start-up, kept while the program runs.
struct Started {
    ProgramFolder folder;
    std::unique_ptr<SettingsStore> store;
    store::DayDatabase dayDatabase;
    AppSettings settings;
    FurtherSettings further;
    std::optional<store::JetImportSummary>
        imported;  ///< set if a day database in the older format was imported
};

/// Start-up until the first window, strictly in this order: changes to the program's folder, recovers from an
/// interrupted compaction, finishes an import, checks the eight files, opens the day database, loads the
/// settings. Throws RunTimeError with the message for the user at the first failure; what follows is not
/// checked. It is a StartError, except for the settings. `masters`: the folder of the installed master files,
/// which errors name; empty if not found.
Started StartUp(const QString& folder, const std::function<std::unique_ptr<SettingsStore>()>& openStore,
                const QString& masters = {});

/// The text of the message box after a failed start-up. `remedy`: the text below the reason; may be empty.
QString StartUpFailureText(const QString& reason, const QString& remedy = {});

}  // namespace tickwell::app
