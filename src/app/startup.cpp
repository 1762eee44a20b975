// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/startup.h"

#include <QDir>
#include <QFileInfo>

#include "app/program_folder.h"
#include "core/errors.h"
#include "core/settings_io.h"
#include "store/day_files.h"
#include "store/day_recovery.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

/// Only checks existence. A dangling link counts as missing.
void RequireFiles() {
    for (const QString& name : RequiredFiles()) {
        if (!QFileInfo::exists(name)) {
            throw RunTimeError(name == kLiveFile ? WithNamedCopies(name) : name);
        }
    }
}

void OpenTheDays(Started& started) {
    try {
        started.imported = ImportJetFile(kLiveFile);
        started.dayDatabase = DayDatabase(kLiveFile);
    } catch (const RunTimeError& error) {
        throw RunTimeError(WithNamedCopies(error.Reason()));
    }
}

}  // namespace

Started StartUp(const QString& folder, const std::function<std::unique_ptr<SettingsStore>()>& openStore) {
    if (!QDir::setCurrent(folder)) {  // bare file names are relative to it
        throw RunTimeError(folder);
    }
    RecoverDayDatabase();
    RequireFiles();
    Started started;
    OpenTheDays(started);
    started.store = openStore();
    LoadSettings(*started.store, started.settings);
    LoadFurtherSettings(*started.store, started.further);
    return started;
}

QString StartUpFailureText(const QString& reason) {
    return u"実行に必要なファイルまたは情報が見つかりません。\r\n"_s + reason;
}

}  // namespace tickwell
