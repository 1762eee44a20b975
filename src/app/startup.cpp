// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/startup.h"

#include <QFileInfo>

#include "app/folder_setup.h"
#include "app/start_error.h"
#include "app/whole_import.h"
#include "core/settings_io.h"
#include "platform/files/ini_file_store.h"
#include "store/day_files.h"
#include "store/day_recovery.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;

namespace {

/// Only checks existence. A dangling link counts as missing.
void RequireFiles(const ProgramFolder& folder, const QString& masters) {
    for (const QString& name : RequiredFiles()) {
        const QString path = folder.PathOf(name);
        if (!QFileInfo::exists(path)) {
            const QString master = masters + u'/' + name;
            const bool hasMaster = !masters.isEmpty() && master != path && QFileInfo::exists(master);
            throw StartError(name == store::kLiveFile ? store::WithNamedCopies(folder, name) : name,
                             MissingFileRemedy(path, hasMaster ? master : QString()));
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

Started StartUp(const QString& folder, const std::function<std::unique_ptr<SettingsStore>()>& openStore,
                const QString& masters) {
    Started started;
    WithRemedy(FolderRemedy(folder), [&] { started.folder = ProgramFolder::Entered(folder); });
    const QString remedy = DayDatabaseRemedy(started.folder.PathOf(store::kLiveFile));
    WithRemedy(remedy, [&] { store::RecoverDayDatabase(started.folder); });
    WithRemedy(ImportRemedy(StagedImport(started.folder)), [&] {
        store::PosixStoreDisk disk;
        FinishImport(started.folder, platform::IniFileStore::UserPath(), disk);
    });
    RequireFiles(started.folder, masters);
    WithRemedy(remedy, [&] { OpenTheDays(started); });
    started.store = openStore();
    LoadSettings(*started.store, started.settings);
    LoadFurtherSettings(*started.store, started.further);
    return started;
}

QString StartUpFailureText(const QString& reason, const QString& remedy) {
    const QString text = u"実行に必要なファイルまたは情報が見つかりません。\r\n"_s + reason;
    return remedy.isEmpty() ? text : text + u"\r\n\r\n" + remedy;
}

}  // namespace tickwell::app
