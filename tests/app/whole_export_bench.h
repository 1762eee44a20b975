// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "app/startup.h"
#include "app/whole_export.h"
#include "app/whole_import.h"
#include "core/errors.h"
#include "store/day_store.h"
#include "store/store_faults.h"
#include "store/tools_database.h"
#include "support/fake_settings_store.h"
#include "support/files.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;
using store::BytesOf;
using store::SetBytes;

inline const QDate kDay(2026, 11, 22);
inline const QStringList kAllFiles{u"DayDate.mdb"_s, u"Syukujitsu.csv"_s, u"TKW2.ini"_s, u"Tools.db"_s};

/// What the files of a program folder hold.
struct State {
    QStringList days;
    QStringList timers;
    QByteArray settings;
    QByteArray list;

    bool operator==(const State&) const = default;
};

/// A program folder with all files, whose names contain `mark`, and its settings.
class Place {
public:
    explicit Place(const QString& mark) {
        const auto path = [this](const QString& name) -> QString { return folder + u'/' + name; };
        if (!QDir().mkpath(folder) || !QDir().mkpath(config)) {
            qFatal("mkpath");
        }
        CopyFiles(QStringLiteral(TICKWELL_MASTERS), folder,
                  {u"DayDate.mdb"_s, u"Help.hlp"_s, u"TKW00.wav"_s, u"TKW01.wav"_s, u"TKW02.wav"_s,
                   u"TKW03.wav"_s, u"TKW04.wav"_s, u"TKW05.wav"_s});
        store::RawConnection(path(u"DayDate.mdb"_s))
            .Run("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('" + mark.toUtf8() + "',0,1,2,0)");
        store::ToolsDatabase tools(Program(), [](const QString&) {});
        tools.AddPreset(
            {.name = mark, .milliseconds = 60'000, .nextName = {}, .nextMilliseconds = 0, .sound = {}});
        SetBytes(settings, "[SetUp]\nA_Font=" + mark.toUtf8() + "\n");
        QByteArray list = BytesOf(QStringLiteral(TICKWELL_HOLIDAY_LIST));
        SetBytes(path(u"Syukujitsu.csv"_s), list);
    }

    ProgramFolder Program() const { return ProgramFolder(folder); }
    QString PathOf(const QString& name) const { return folder + u'/' + name; }

    State Now() const {
        return {store::RawConnection(PathOf(u"DayDate.mdb"_s)).Run("SELECT * FROM Kinenbi ORDER BY id"),
                store::RawConnection(PathOf(u"Tools.db"_s)).Run("SELECT name FROM presets ORDER BY id"),
                BytesOf(settings), BytesOf(PathOf(u"Syukujitsu.csv"_s))};
    }
    /// The names in the program's folder that were not there at first.
    QStringList NewNames() const {
        QStringList names =
            QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
        for (const QString& old : {u"DayDate.mdb"_s, u"DayDate.lock"_s, u"Help.hlp"_s, u"TKW00.wav"_s,
                                   u"TKW01.wav"_s, u"TKW02.wav"_s, u"TKW03.wav"_s, u"TKW04.wav"_s,
                                   u"TKW05.wav"_s, u"Tools.db"_s, u"Tools.lock"_s, u"Syukujitsu.csv"_s}) {
            names.removeOne(old);
        }
        return names;
    }

    QTemporaryDir dir;
    QString folder = dir.filePath(u"program"_s);
    QString config = dir.filePath(u"config/TKW2"_s);
    QString settings = config + u"/TKW2.ini";
};

inline QString Export(const Place& place, store::StoreDisk& disk) {
    return ExportEverything(place.Program(), place.settings, place.dir.path(), kDay, disk);
}

/// The reason of the RunTimeError of `job`; empty if there is none.
template <typename Job>
QString FaultOf(Job job) {
    try {
        job();
    } catch (const RunTimeError& error) {
        return error.Reason();
    }
    return QString();
}

/// What the program does at its start.
inline void StartAgain(const Place& place) {
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(place.dir.filePath(u"config"_s)));
    StartUp(place.folder, [] { return std::make_unique<FakeSettingsStore>(); });
}

/// The two steps of the running program.
inline void Import(const Place& to, const QString& source, store::StoreDisk& disk) {
    StageImport(to.Program(), source, disk);
    ApplyImport(to.Program(), disk);
}

/// The names of all entries of a folder.
inline QStringList EntriesOf(const QString& folder) {
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

}  // namespace tickwell::app
