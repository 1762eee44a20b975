// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/startup.h"

#include <QFileInfo>

#include "app/folder_setup.h"
#include "core/errors.h"
#include "core/settings_io.h"
#include "store/day_files.h"
#include "store/day_recovery.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;

namespace {

/// Only checks existence. A dangling link counts as missing.
void RequireFiles(const ProgramFolder& folder) {
    for (const QString& name : RequiredFiles()) {
        if (!QFileInfo::exists(folder.PathOf(name))) {
            throw RunTimeError(name == store::kLiveFile ? store::WithNamedCopies(folder, name) : name);
        }
    }
}

void OpenTheDays(Started& started) {
    const QString path = started.folder.PathOf(store::kLiveFile);
    try {
        started.imported = store::ImportJetFile(path);
        started.dayDatabase = store::DayDatabase(path);
    } catch (const RunTimeError& error) {
        throw RunTimeError(store::WithNamedCopies(started.folder, started.folder.Shortened(error.Reason())));
    }
}

}  // namespace

Started StartUp(const QString& folder, const std::function<std::unique_ptr<SettingsStore>()>& openStore) {
    Started started;
    started.folder = ProgramFolder::Entered(folder);
    store::RecoverDayDatabase(started.folder);
    RequireFiles(started.folder);
    OpenTheDays(started);
    started.store = openStore();
    LoadSettings(*started.store, started.settings);
    LoadFurtherSettings(*started.store, started.further);
    return started;
}

QString StartUpFailureText(const QString& reason) {
    return u"実行に必要なファイルまたは情報が見つかりません。\r\n"_s + reason;
}

}  // namespace tickwell::app
