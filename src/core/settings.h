// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

#include "core/era.h"

namespace tickwell {

/// The look of one of the two lines. The settings call the upper line A and the lower line B.
struct LineStyle {
    QString fontName;     ///< as chosen; kept and written back even if the font is not installed
    qint16 fontSize = 0;  ///< points
    qint32 color = 0;     ///< red + green * 256 + blue * 65536
    bool bold = false;
    bool italic = false;
    bool strikethrough = false;
    bool underline = false;

    bool operator==(const LineStyle&) const = default;
};

/// All settings, loaded once at start-up and stored when the main window closes, and with savesImmediately
/// also by OK and 適用. Only the types of values are checked; the code that uses a number defines what
/// unknown values mean.
struct AppSettings {
    qint32 chimeMode = 0;
    QString chimeSound;
    qint32 function = 0;  ///< the display function, kept for the next start
    qint32 wipeSpeed = 0;
    qint32 wipeKind = 0;
    qint32 backColor = 0;  ///< red + green * 256 + blue * 65536
    LineStyle upper;
    LineStyle lower;
    qint32 language = 0;
    qint32 yearStyle = 0;
    qint32 displayMode = 0;
    qint32 hourStyle = 0;
    qint32 rollInterval = 0;  ///< read when the window loads, otherwise unused, never written

    bool operator==(const AppSettings&) const = default;
};

/// The roll: the main window shows the chosen displays in turn.
struct RollSettings {
    bool use = false;
    QList<qint32> kinds{0, 1, 4, 5};  ///< the chosen functions; unknown numbers are kept and ignored
    qint32 interval = 10;             ///< seconds; clamped to 1..3600 when used

    bool operator==(const RollSettings&) const = default;
};

/// What is written below the days of the calendar.
enum class UnderDays : qint32 { Nothing = 0, SixDay = 1, OldDate = 2 };

/// The calendar of present-day Japan; by default all of it is off.
struct CalendarSettings {
    bool holidaysByLaw = false;     ///< the law and the official list replace the table of holidays
    EraStyle eras{};                ///< `next` is set only in the settings file
    bool announcesOldDate = false;  ///< the old calendar's date with its name in the six-day week (rokuyo)
    bool announcesSeasons = false;  ///< solar terms and seasonal days
    bool usesOldDateInOldJapanese = false;
    qint32 underDays = 0;  ///< an UnderDays; other numbers mean Nothing

    bool operator==(const CalendarSettings&) const = default;
};

/// Corrections of behaviour that users may rely on; by default all are off.
struct Corrections {
    bool weekdayAnniversaries = false;  ///< announced on their own day, and edited and deleted by their row
    bool editorTakesDate = false;       ///< the editor starts with the date of the row
    bool dateTurnsAtMidnight = false;   ///< the upper line shows a new date immediately
    bool longUsage = false;             ///< the time since boot stays right after 24.8 days
    bool searchAcrossMonths = false;    ///< finds anniversaries of every year in ranges that cross months
    bool lapIntervals = false;          ///< shows each lap with the time since the previous one
    bool showsToday = false;            ///< a frame around today, and dots at days with anniversaries
    bool keepsMarksOnClose = false;     ///< closing the calendar while marking stores the marks
    bool savesImmediately = false;      ///< OK and 適用 write the settings file

    bool operator==(const Corrections&) const = default;
};

/// How a line shows a text that is wider than itself.
enum class LongText : qint32 { CutOff = 0, Ellipsis = 1, ScrollOnce = 2 };

/// The look and the place of the main window; by default nothing of this changes it.
struct FaceSettings {
    qint32 opacity = 100;        ///< percent; clamped to 20..100 when used
    qint32 longText = 0;         ///< a LongText; other numbers mean CutOff
    bool staysOnScreen = false;  ///< brought back if it is outside the screens
    QString screen;         ///< name of the screen that it was on last; empty if it need not be brought back
    qint32 screenLeft = 0;  ///< position on that screen, logical pixels
    qint32 screenTop = 0;

    bool operator==(const FaceSettings&) const = default;
};

/// Settings that are stored only once they differ from these defaults.
struct FurtherSettings {
    RollSettings roll;
    bool tellsNoCdDrive = true;  ///< whether a missing CD drive is reported at the start
    CalendarSettings calendar{};
    Corrections corrections{};
    FaceSettings face{};

    bool operator==(const FurtherSettings&) const = default;
};

/// Position and width of the main window in twips, 15 per logical pixel. The height follows from the fonts.
/// Kept in twips so that a stored 2506 stays 2506 although the screen shows 167 pixels.
struct WindowGeometry {
    qint32 width = 0;
    qint32 top = 0;
    qint32 left = 0;

    bool operator==(const WindowGeometry&) const = default;
};

}  // namespace tickwell
