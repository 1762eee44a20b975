// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/setting_keys.h"

#include <array>

namespace tickwell {

namespace {

constexpr QStringView kFontDefault = u"ＭＳ Ｐゴシック";

constexpr std::array kKeys{
    SettingKey{u"SetUp", u"Clock_Int", u"0",
               [](StoredSettings& s) -> Field { return &s.settings.chimeMode; }},
    SettingKey{u"SetUp", u"Clock_File", u"鳩時計の音",
               [](StoredSettings& s) -> Field { return &s.settings.chimeSound; }},
    SettingKey{u"SetUp", u"Function", u"0", [](StoredSettings& s) -> Field { return &s.settings.function; }},
    SettingKey{u"SetUp", u"Op_Speed", u"25",
               [](StoredSettings& s) -> Field { return &s.settings.wipeSpeed; }},
    SettingKey{u"SetUp", u"Op_Waip", u"2", [](StoredSettings& s) -> Field { return &s.settings.wipeKind; }},
    SettingKey{u"SetUp", u"BackColor", u"0",
               [](StoredSettings& s) -> Field { return &s.settings.backColor; }},
    SettingKey{u"SetUp", u"A_Font", kFontDefault,
               [](StoredSettings& s) -> Field { return &s.settings.upper.fontName; }},
    SettingKey{u"SetUp", u"B_Font", kFontDefault,
               [](StoredSettings& s) -> Field { return &s.settings.lower.fontName; }},
    SettingKey{u"SetUp", u"A_Color", u"16777215",
               [](StoredSettings& s) -> Field { return &s.settings.upper.color; }},
    SettingKey{u"SetUp", u"B_Color", u"65280",
               [](StoredSettings& s) -> Field { return &s.settings.lower.color; }},
    SettingKey{u"SetUp", u"A_Size", u"10",
               [](StoredSettings& s) -> Field { return &s.settings.upper.fontSize; }},
    SettingKey{u"SetUp", u"B_Size", u"10",
               [](StoredSettings& s) -> Field { return &s.settings.lower.fontSize; }},
    SettingKey{u"SetUp", u"A_Bold", u"False",
               [](StoredSettings& s) -> Field { return &s.settings.upper.bold; }},
    SettingKey{u"SetUp", u"B_Bold", u"False",
               [](StoredSettings& s) -> Field { return &s.settings.lower.bold; }},
    SettingKey{u"SetUp", u"A_Italic", u"False",
               [](StoredSettings& s) -> Field { return &s.settings.upper.italic; }},
    SettingKey{u"SetUp", u"B_Italic", u"False",
               [](StoredSettings& s) -> Field { return &s.settings.lower.italic; }},
    SettingKey{u"SetUp", u"A_Strikethru", u"False",
               [](StoredSettings& s) -> Field { return &s.settings.upper.strikethrough; }},
    SettingKey{u"SetUp", u"B_Strikethru", u"False",
               [](StoredSettings& s) -> Field { return &s.settings.lower.strikethrough; }},
    SettingKey{u"SetUp", u"A_UnderLine", u"False",
               [](StoredSettings& s) -> Field { return &s.settings.upper.underline; }},
    SettingKey{u"SetUp", u"B_UnderLine", u"False",
               [](StoredSettings& s) -> Field { return &s.settings.lower.underline; }},
    SettingKey{u"Digital", u"Language", u"0",
               [](StoredSettings& s) -> Field { return &s.settings.language; }},
    SettingKey{u"Digital", u"TypeYear", u"0",
               [](StoredSettings& s) -> Field { return &s.settings.yearStyle; }},
    SettingKey{u"Digital", u"DisMode", u"0",
               [](StoredSettings& s) -> Field { return &s.settings.displayMode; }},
    SettingKey{u"Digital", u"TypeHour", u"0",
               [](StoredSettings& s) -> Field { return &s.settings.hourStyle; }},
};

constexpr std::array kGeometryKeys{
    SettingKey{u"SetUp", u"Win_Width", u"2505", [](StoredSettings& s) -> Field { return &s.geometry.width; }},
    SettingKey{u"SetUp", u"Win_Top", u"0", [](StoredSettings& s) -> Field { return &s.geometry.top; }},
    SettingKey{u"SetUp", u"Win_Left", u"0", [](StoredSettings& s) -> Field { return &s.geometry.left; }},
    SettingKey{u"Wape", u"Time", u"10", [](StoredSettings& s) -> Field { return &s.settings.rollInterval; }},
};

constexpr std::array kFurtherKeys{
    SettingKey{u"Roll", u"Use", u"False", [](StoredSettings& s) -> Field { return &s.further.roll.use; }},
    SettingKey{u"Roll", u"Kinds", u"0,1,4,5",
               [](StoredSettings& s) -> Field { return &s.further.roll.kinds; }},
    SettingKey{u"Roll", u"Interval", u"10",
               [](StoredSettings& s) -> Field { return &s.further.roll.interval; }},
    SettingKey{u"Notice", u"NoCdDrive", u"True",
               [](StoredSettings& s) -> Field { return &s.further.tellsNoCdDrive; }},
    SettingKey{u"Calendar", u"HolidaysByLaw", u"False",
               [](StoredSettings& s) -> Field { return &s.further.calendar.holidaysByLaw; }},
    SettingKey{u"Calendar", u"ErasByDate", u"False",
               [](StoredSettings& s) -> Field { return &s.further.calendar.eras.byDate; }},
    SettingKey{u"Calendar", u"NextEra", u"",
               [](StoredSettings& s) -> Field { return &s.further.calendar.eras.next; }},
    SettingKey{u"Calendar", u"OldDate", u"False",
               [](StoredSettings& s) -> Field { return &s.further.calendar.announcesOldDate; }},
    SettingKey{u"Calendar", u"Seasons", u"False",
               [](StoredSettings& s) -> Field { return &s.further.calendar.announcesSeasons; }},
    SettingKey{u"Calendar", u"OldJapaneseOldDate", u"False",
               [](StoredSettings& s) -> Field { return &s.further.calendar.usesOldDateInOldJapanese; }},
    SettingKey{u"Calendar", u"UnderDays", u"0",
               [](StoredSettings& s) -> Field { return &s.further.calendar.underDays; }},
    SettingKey{u"Corrections", u"WeekdayAnniversaries", u"False",
               [](StoredSettings& s) -> Field { return &s.further.corrections.weekdayAnniversaries; }},
    SettingKey{u"Corrections", u"EditorTakesDate", u"False",
               [](StoredSettings& s) -> Field { return &s.further.corrections.editorTakesDate; }},
    SettingKey{u"Corrections", u"DateTurnsAtMidnight", u"False",
               [](StoredSettings& s) -> Field { return &s.further.corrections.dateTurnsAtMidnight; }},
    SettingKey{u"Corrections", u"LongUsage", u"False",
               [](StoredSettings& s) -> Field { return &s.further.corrections.longUsage; }},
    SettingKey{u"Corrections", u"SearchAcrossMonths", u"False",
               [](StoredSettings& s) -> Field { return &s.further.corrections.searchAcrossMonths; }},
    SettingKey{u"Corrections", u"LapIntervals", u"False",
               [](StoredSettings& s) -> Field { return &s.further.corrections.lapIntervals; }},
    SettingKey{u"Corrections", u"ShowsToday", u"False",
               [](StoredSettings& s) -> Field { return &s.further.corrections.showsToday; }},
    SettingKey{u"Corrections", u"KeepsMarksOnClose", u"False",
               [](StoredSettings& s) -> Field { return &s.further.corrections.keepsMarksOnClose; }},
    SettingKey{u"Corrections", u"SavesImmediately", u"False",
               [](StoredSettings& s) -> Field { return &s.further.corrections.savesImmediately; }},
    SettingKey{u"Face", u"Opacity", u"100",
               [](StoredSettings& s) -> Field { return &s.further.face.opacity; }},
    SettingKey{u"Face", u"LongText", u"0",
               [](StoredSettings& s) -> Field { return &s.further.face.longText; }},
    SettingKey{u"Face", u"StaysOnScreen", u"False",
               [](StoredSettings& s) -> Field { return &s.further.face.staysOnScreen; }},
    SettingKey{u"Face", u"Screen", u"", [](StoredSettings& s) -> Field { return &s.further.face.screen; }},
    SettingKey{u"Face", u"ScreenLeft", u"0",
               [](StoredSettings& s) -> Field { return &s.further.face.screenLeft; }},
    SettingKey{u"Face", u"ScreenTop", u"0",
               [](StoredSettings& s) -> Field { return &s.further.face.screenTop; }},
    SettingKey{u"Face", u"ShowsZone", u"False",
               [](StoredSettings& s) -> Field { return &s.further.face.showsZone; }},
    SettingKey{u"Face", u"Zone", u"", [](StoredSettings& s) -> Field { return &s.further.face.zone; }},
    SettingKey{u"Face", u"ZoneName", u"",
               [](StoredSettings& s) -> Field { return &s.further.face.zoneName; }},
    SettingKey{u"Face", u"HidesUnderFullScreen", u"False",
               [](StoredSettings& s) -> Field { return &s.further.face.hidesUnderFullScreen; }},
    SettingKey{u"Face", u"InWindowSwitcher", u"False",
               [](StoredSettings& s) -> Field { return &s.further.face.inWindowSwitcher; }},
    SettingKey{u"Face", u"ToolsStayOnTop", u"False",
               [](StoredSettings& s) -> Field { return &s.further.face.toolsStayOnTop; }},
    SettingKey{u"Face", u"Transparent", u"False",
               [](StoredSettings& s) -> Field { return &s.further.face.transparent; }},
    SettingKey{u"Face", u"Outline", u"1", [](StoredSettings& s) -> Field { return &s.further.face.outline; }},
    SettingKey{u"Face", u"ClickThrough", u"False",
               [](StoredSettings& s) -> Field { return &s.further.face.clickThrough; }},
    SettingKey{u"Face", u"ClickThroughWithoutIcon", u"False",
               [](StoredSettings& s) -> Field { return &s.further.face.clickThroughWithoutIcon; }},
    SettingKey{u"Remote", u"AcceptsCommands", u"False",
               [](StoredSettings& s) -> Field { return &s.further.remote.acceptsCommands; }},
    SettingKey{u"Remote", u"MediaKeys", u"False",
               [](StoredSettings& s) -> Field { return &s.further.remote.mediaKeys; }},
    SettingKey{u"Cd", u"ShowsTitles", u"False",
               [](StoredSettings& s) -> Field { return &s.further.cd.showsTitles; }},
    SettingKey{u"Keyboard", u"MovesWindow", u"False",
               [](StoredSettings& s) -> Field { return &s.further.keyboard.movesWindow; }},
    SettingKey{u"Keyboard", u"ShowsAccessKeys", u"False",
               [](StoredSettings& s) -> Field { return &s.further.keyboard.showsAccessKeys; }},
    SettingKey{u"Quiet", u"Hours", u"False",
               [](StoredSettings& s) -> Field { return &s.further.quiet.hasHours; }},
    SettingKey{u"Quiet", u"From", u"1320", [](StoredSettings& s) -> Field { return &s.further.quiet.from; }},
    SettingKey{u"Quiet", u"To", u"420", [](StoredSettings& s) -> Field { return &s.further.quiet.to; }},
    SettingKey{u"Quiet", u"Chime", u"True",
               [](StoredSettings& s) -> Field { return &s.further.quiet.silencesChime; }},
    SettingKey{u"Quiet", u"Timer", u"False",
               [](StoredSettings& s) -> Field { return &s.further.quiet.silencesTimer; }},
    SettingKey{u"Quiet", u"Desktop", u"False",
               [](StoredSettings& s) -> Field { return &s.further.quiet.followsDesktop; }},
    SettingKey{u"Quiet", u"Volume", u"100",
               [](StoredSettings& s) -> Field { return &s.further.quiet.volume; }},
    SettingKey{u"Notices", u"Days", u"False",
               [](StoredSettings& s) -> Field { return &s.further.notices.tellsDays; }},
    SettingKey{u"Notices", u"DaysAhead", u"0",
               [](StoredSettings& s) -> Field { return &s.further.notices.daysAhead; }},
    SettingKey{u"Notices", u"Time", u"540",
               [](StoredSettings& s) -> Field { return &s.further.notices.time; }},
    SettingKey{u"Notices", u"Counts", u"False",
               [](StoredSettings& s) -> Field { return &s.further.notices.counts; }},
    SettingKey{u"Notices", u"Countdown", u"False",
               [](StoredSettings& s) -> Field { return &s.further.notices.tellsCountdown; }},
    SettingKey{u"Backup", u"Daily", u"False",
               [](StoredSettings& s) -> Field { return &s.further.backup.daily; }},
    SettingKey{u"Sync", u"Use", u"False", [](StoredSettings& s) -> Field { return &s.further.sync.use; }},
    SettingKey{u"Sync", u"Folder", u"", [](StoredSettings& s) -> Field { return &s.further.sync.folder; }},
    SettingKey{u"Sync", u"Computer", u"",
               [](StoredSettings& s) -> Field { return &s.further.sync.computer; }},
};

constexpr std::array<QStringView, 27> kWriteOrder{
    u"Op_Speed",     u"Op_Waip",     u"BackColor",   u"A_Font",    u"B_Font",   u"A_Color",  u"B_Color",
    u"A_Size",       u"B_Size",      u"A_Bold",      u"B_Bold",    u"A_Italic", u"B_Italic", u"A_Strikethru",
    u"B_Strikethru", u"A_UnderLine", u"B_UnderLine", u"Win_Width", u"Win_Top",  u"Win_Left", u"Function",
    u"Clock_File",   u"Clock_Int",   u"Language",    u"TypeYear",  u"DisMode",  u"TypeHour"};

}  // namespace

std::span<const SettingKey> SettingKeys() {
    return kKeys;
}

std::span<const SettingKey> GeometryKeys() {
    return kGeometryKeys;
}

std::span<const SettingKey> FurtherKeys() {
    return kFurtherKeys;
}

std::span<const QStringView> WriteOrder() {
    return kWriteOrder;
}

}  // namespace tickwell
