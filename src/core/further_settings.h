// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

#include "core/backup_settings.h"
#include "core/calendar_settings.h"
#include "core/corrections.h"
#include "core/keyboard_settings.h"
#include "core/notice_settings.h"
#include "core/quiet_settings.h"
#include "core/remote_settings.h"
#include "core/sync_settings.h"

namespace tickwell {

/// The roll: the main window shows the chosen displays in turn.
struct RollSettings {
    bool use = false;
    QList<qint32> kinds{0, 1, 4, 5};  ///< the chosen functions; unknown numbers are kept and ignored
    qint32 interval = 10;             ///< seconds; clamped to 1..3600 when used

    bool operator==(const RollSettings&) const = default;
};

/// How a line shows a text that is wider than itself.
enum class LongText : qint32 { CutOff = 0, Ellipsis = 1, ScrollOnce = 2 };

/// The outline of the texts when their background is transparent.
enum class TextOutline : qint32 { None = 0, Thin = 1, Thick = 2 };

/// Appearance and position of the main window; by default all of it is off.
struct FaceSettings {
    qint32 opacity = 100;        ///< percent; clamped to 20..100 when used
    qint32 longText = 0;         ///< a LongText; other numbers mean CutOff
    bool staysOnScreen = false;  ///< brought back if it is outside the screens
    QString screen;         ///< name of the screen that it was last on; empty if it need not be brought back
    qint32 screenLeft = 0;  ///< position on that screen, logical pixels
    qint32 screenTop = 0;
    bool showsZone = false;                ///< the time in another zone alternates with the date
    QString zone;                          ///< its id, such as "Europe/London"; an unknown one is not shown
    QString zoneName;                      ///< shown before its time; the zone's city is used if blank
    bool hidesUnderFullScreen = false;     ///< while another program fills its screen
    bool inWindowSwitcher = false;         ///< and in taskbar and pager
    bool toolsStayOnTop = false;           ///< the other windows too, not only those that cover this one
    bool transparent = false;              ///< only the texts are painted; effective from the next start
    qint32 outline = 1;                    ///< a TextOutline, used when transparent; other numbers mean Thin
    bool clickThrough = false;             ///< clicks pass to the window below while there is a tray icon
    bool clickThroughWithoutIcon = false;  ///< and even without the icon: the user has agreed

    bool operator==(const FaceSettings&) const = default;
};

/// Settings that are stored only once they differ from these defaults.
struct FurtherSettings {
    RollSettings roll;
    bool tellsNoCdDrive = true;  ///< whether a missing CD drive is reported at the start
    CalendarSettings calendar{};
    Corrections corrections{};
    FaceSettings face{};
    RemoteSettings remote{};
    KeyboardSettings keyboard{};
    CdSettings cd{};
    QuietSettings quiet{};
    NoticeSettings notices{};
    BackupSettings backup{};
    SyncSettings sync{};

    bool operator==(const FurtherSettings&) const = default;
};

}  // namespace tickwell
