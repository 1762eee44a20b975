// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTest>
#include <array>

#include "core/settings.h"

Q_DECLARE_METATYPE(tickwell::FurtherSettings)

namespace tickwell {

/// A flag of the settings that is off by default, and its key in the settings file.
struct FurtherFlag {
    const char* section;
    const char* key;
    bool& (*field)(FurtherSettings&);
};

inline constexpr std::array kFurtherFlags{
    FurtherFlag{"Calendar", "HolidaysByLaw",
                [](FurtherSettings& s) -> bool& { return s.calendar.holidaysByLaw; }},
    FurtherFlag{"Calendar", "ErasByDate", [](FurtherSettings& s) -> bool& { return s.calendar.eras.byDate; }},
    FurtherFlag{"Calendar", "OldDate",
                [](FurtherSettings& s) -> bool& { return s.calendar.announcesOldDate; }},
    FurtherFlag{"Calendar", "Seasons",
                [](FurtherSettings& s) -> bool& { return s.calendar.announcesSeasons; }},
    FurtherFlag{"Calendar", "OldJapaneseOldDate",
                [](FurtherSettings& s) -> bool& { return s.calendar.usesOldDateInOldJapanese; }},
    FurtherFlag{"Corrections", "WeekdayAnniversaries",
                [](FurtherSettings& s) -> bool& { return s.corrections.weekdayAnniversaries; }},
    FurtherFlag{"Corrections", "EditorTakesDate",
                [](FurtherSettings& s) -> bool& { return s.corrections.editorTakesDate; }},
    FurtherFlag{"Corrections", "DateTurnsAtMidnight",
                [](FurtherSettings& s) -> bool& { return s.corrections.dateTurnsAtMidnight; }},
    FurtherFlag{"Corrections", "LongUsage",
                [](FurtherSettings& s) -> bool& { return s.corrections.longUsage; }},
    FurtherFlag{"Corrections", "SearchAcrossMonths",
                [](FurtherSettings& s) -> bool& { return s.corrections.searchAcrossMonths; }},
    FurtherFlag{"Corrections", "LapIntervals",
                [](FurtherSettings& s) -> bool& { return s.corrections.lapIntervals; }},
    FurtherFlag{"Corrections", "ShowsToday",
                [](FurtherSettings& s) -> bool& { return s.corrections.showsToday; }},
    FurtherFlag{"Corrections", "KeepsMarksOnClose",
                [](FurtherSettings& s) -> bool& { return s.corrections.keepsMarksOnClose; }},
    FurtherFlag{"Corrections", "SavesImmediately",
                [](FurtherSettings& s) -> bool& { return s.corrections.savesImmediately; }},
    FurtherFlag{"Face", "StaysOnScreen", [](FurtherSettings& s) -> bool& { return s.face.staysOnScreen; }},
    FurtherFlag{"Face", "ShowsZone", [](FurtherSettings& s) -> bool& { return s.face.showsZone; }},
    FurtherFlag{"Face", "HidesUnderFullScreen",
                [](FurtherSettings& s) -> bool& { return s.face.hidesUnderFullScreen; }},
    FurtherFlag{"Face", "InWindowSwitcher",
                [](FurtherSettings& s) -> bool& { return s.face.inWindowSwitcher; }},
    FurtherFlag{"Face", "ToolsStayOnTop", [](FurtherSettings& s) -> bool& { return s.face.toolsStayOnTop; }},
    FurtherFlag{"Face", "Transparent", [](FurtherSettings& s) -> bool& { return s.face.transparent; }},
    FurtherFlag{"Face", "ClickThrough", [](FurtherSettings& s) -> bool& { return s.face.clickThrough; }},
    FurtherFlag{"Face", "ClickThroughWithoutIcon",
                [](FurtherSettings& s) -> bool& { return s.face.clickThroughWithoutIcon; }},
    FurtherFlag{"Remote", "AcceptsCommands",
                [](FurtherSettings& s) -> bool& { return s.remote.acceptsCommands; }},
    FurtherFlag{"Remote", "MediaKeys", [](FurtherSettings& s) -> bool& { return s.remote.mediaKeys; }},
    FurtherFlag{"Cd", "ShowsTitles", [](FurtherSettings& s) -> bool& { return s.cd.showsTitles; }},
    FurtherFlag{"Keyboard", "MovesWindow",
                [](FurtherSettings& s) -> bool& { return s.keyboard.movesWindow; }},
    FurtherFlag{"Keyboard", "ShowsAccessKeys",
                [](FurtherSettings& s) -> bool& { return s.keyboard.showsAccessKeys; }},
    FurtherFlag{"Quiet", "Hours", [](FurtherSettings& s) -> bool& { return s.quiet.hasHours; }},
    FurtherFlag{"Quiet", "Timer", [](FurtherSettings& s) -> bool& { return s.quiet.silencesTimer; }},
    FurtherFlag{"Quiet", "Desktop", [](FurtherSettings& s) -> bool& { return s.quiet.followsDesktop; }},
    FurtherFlag{"Notices", "Days", [](FurtherSettings& s) -> bool& { return s.notices.tellsDays; }},
    FurtherFlag{"Notices", "Counts", [](FurtherSettings& s) -> bool& { return s.notices.counts; }},
    FurtherFlag{"Notices", "Countdown", [](FurtherSettings& s) -> bool& { return s.notices.tellsCountdown; }},
    FurtherFlag{"Backup", "Daily", [](FurtherSettings& s) -> bool& { return s.backup.daily; }},
    FurtherFlag{"Sync", "Use", [](FurtherSettings& s) -> bool& { return s.sync.use; }},
};

/// Adds a row for each flag, named after its key, with settings in which only that flag is on.
inline void AddRowOfEachFlag() {
    QTest::addColumn<FurtherSettings>("further");
    for (const FurtherFlag& flag : kFurtherFlags) {
        FurtherSettings further;
        flag.field(further) = true;
        QTest::newRow(flag.key) << further;
    }
}

}  // namespace tickwell
