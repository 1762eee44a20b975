// SPDX-License-Identifier: GPL-3.0-or-later
// The files on disk.
#include <QDate>
#include <QDir>

#include "core/settings_io.h"
#include "monkey/rules.h"
#include "platform/files/ini_file_store.h"
#include "store/day_store.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

/// All files that may be in the program's folder unless a compaction is running.
const QStringList& KnownFiles() {
    static const QStringList names{u".masters"_s,  u"DayDate.lock"_s, u"DayDate.mdb"_s, u"Help.hlp"_s,
                                   u"TKW00.wav"_s, u"TKW01.wav"_s,    u"TKW02.wav"_s,   u"TKW03.wav"_s,
                                   u"TKW04.wav"_s, u"TKW05.wav"_s};
    return names;
}

/// The national holidays are part of the delivered database; the program never changes them.
constexpr QStringView kHolidays = u"SELECT count(*) FROM Syukuzitu";

void CheckDates(store::RawConnection& database, const QByteArray& table, Complaints& complaints) {
    for (const QString& text : database.Run("SELECT Date FROM " + table)) {
        const QDate date = QDate::fromString(text, Qt::ISODate);
        complaints.Unless(date.isValid() && date.toString(Qt::ISODate) == text,
                          QString::fromLatin1(table) + u" has the date " + text);
    }
    for (const QString& text :
         database.Run("SELECT Date FROM " + table + " GROUP BY Date HAVING count(*) > 1")) {
        complaints.Unless(false, QString::fromLatin1(table) + u" has twice " + text);
    }
}

}  // namespace

void CheckDatabase(const World& world, Complaints& complaints) {
    store::RawConnection database(world.DatabasePath());
    complaints.Unless(database.Run("PRAGMA quick_check") == QStringList{u"ok"_s}, u"quick_check"_s);
    for (const QByteArray& table : {QByteArray("Holiday"), QByteArray("Halfday"), QByteArray("Usuallyday")}) {
        CheckDates(database, table, complaints);
    }
    // Each row must be one that the book can write: with a day or a week but not both, and with numbers in
    // range.
    const QStringList wrong = database.Run(
        "SELECT id FROM Kinenbi WHERE (Day <> 0 AND Week <> 0) OR (Year <> 0 AND Month = 0 AND Day = 0) OR "
        "max(abs(Year), abs(Month), abs(Day), abs(Week)) > 2147483648");
    complaints.Unless(wrong.isEmpty(), u"anniversaries of no kind: " + wrong.join(u' '));
    complaints.Unless(
        database.Run(kHolidays.toLatin1()) ==
            store::RawConnection(QStringLiteral(TICKWELL_MASTERS "/DayDate.mdb")).Run(kHolidays.toLatin1()),
        u"the national holidays are not what was delivered"_s);
    const QStringList files =
        QDir(world.Folder()).entryList(QDir::Files | QDir::Hidden, QDir::Name | QDir::IgnoreCase);
    // Both are made when the list of timers is opened first.
    const QStringList ofTimers{u"Tools.db"_s, u"Tools.lock"_s};
    const QStringList known = KnownFiles() + (files.contains(ofTimers[0]) ? ofTimers : QStringList());
    for (const QString& file : files) {
        complaints.Unless(known.contains(file), u"left in the folder: " + file);
    }
    complaints.Unless(files.size() == known.size(), u"files are missing in the folder"_s);
}

void CheckSettingsFile(const World& world, Complaints& complaints) {
    try {
        const platform::IniFileStore store(world.SettingsPath());
        AppSettings settings;
        FurtherSettings further;
        WindowGeometry geometry;
        LoadSettings(store, settings);
        LoadFurtherSettings(store, further);
        LoadWindowGeometry(store, settings, geometry);
        if (world.Now().wasShownForNow) {
            settings.function = world.Now().stored.function;
        }
        complaints.Unless(settings == world.Now().stored, u"the settings do not come back as they were"_s);
        FurtherSettings expected = world.Now().storedFurther;
        // Stored at once, even if the message box outlives the main window.
        expected.tellsNoCdDrive = world.Now().state.started.further.tellsNoCdDrive;
        complaints.Unless(further == expected, u"the further settings do not come back as they were"_s);
        complaints.Unless(geometry.width > 0, u"a width of %1"_s.arg(geometry.width));
    } catch (const RunTimeError& error) {
        complaints.Unless(false, u"the settings cannot be read: " + error.Reason());
    }
}

}  // namespace tickwell
