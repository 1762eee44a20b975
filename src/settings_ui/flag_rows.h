// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>
#include <array>
#include <span>

#include "core/settings.h"

namespace tickwell::settings_ui {

/// A check box for one flag of the settings.
struct FlagRow {
    QStringView name;  ///< of the object
    QStringView caption;
    bool& (*field)(FurtherSettings&) = nullptr;
};

/// The old calendar, from top to bottom.
std::span<const FlagRow> OldCalendarFlags();

/// The corrections, from top to bottom.
std::span<const FlagRow> CorrectionFlags();

/// The place of the main window.
std::span<const FlagRow> PlaceFlags();

/// Chooses the law's holidays, the eras of the dates, and the corrections without which a Japan of today is
/// announced wrongly: anniversaries of a weekday, the new date at midnight, and today's frame.
void ChooseTodaysJapan(FurtherSettings& further);

/// What ChooseTodaysJapan chooses, a line each with the captions of the controls.
QString TodaysJapanText();

}  // namespace tickwell::settings_ui
