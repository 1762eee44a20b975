// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/startup.h"

#include <QDir>
#include <QFileInfo>

#include "app/program_folder.h"
#include "core/errors.h"
#include "core/settings_io.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

/// Existence alone is asked for. A link that leads nowhere counts as missing.
void RequireFiles() {
    for (const QString& name : RequiredFiles()) {
        if (!QFileInfo::exists(name)) {
            throw RunTimeError(name);
        }
    }
}

}  // namespace

Started StartUp(const QString& folder, const std::function<std::unique_ptr<SettingsStore>()>& openStore) {
    if (!QDir::setCurrent(folder)) {  // every bare file name is meant from here
        throw RunTimeError(folder);
    }
    RequireFiles();
    Started started;
    started.imported = ImportJetFile(u"DayDate.mdb"_s);
    started.dayDatabase = OpenDayDatabase(u"DayDate.mdb"_s);
    started.store = openStore();
    LoadSettings(*started.store, started.settings);
    return started;
}

QString StartUpFailureText(const QString& reason) {
    return u"実行に必要なファイルまたは情報が見つかりません。\r\n"_s + reason;
}

}  // namespace tickwell
