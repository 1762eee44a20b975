// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>
#include <array>
#include <span>

#include "core/settings.h"

namespace tickwell::settings_ui {

/// A check box for one flag of the settings.
struct FlagRow {
    QStringView name;  ///< the box's object name
    QStringView caption;
    bool& (*field)(FurtherSettings&) = nullptr;
};

/// The flags of the old calendar, from top to bottom.
std::span<const FlagRow> OldCalendarFlags();

/// The corrections, from top to bottom.
std::span<const FlagRow> CorrectionFlags();

/// How the main window behaves on the desktop, from top to bottom.
std::span<const FlagRow> PlaceFlags();

/// The keyboard options, from top to bottom.
std::span<const FlagRow> KeyboardFlags();

/// What other programs may do, from top to bottom.
std::span<const FlagRow> RemoteFlags();

/// The CD player's options, from top to bottom.
std::span<const FlagRow> CdFlags();

/// Chooses the holidays of the law, the eras of the dates, and the corrections without which present-day
/// dates are announced wrongly: anniversaries of a weekday, the new date at midnight, and today's frame.
void ChooseTodaysJapan(FurtherSettings& further);

/// The choices of ChooseTodaysJapan, one per line, with the captions of the controls.
QString TodaysJapanText();

}  // namespace tickwell::settings_ui
