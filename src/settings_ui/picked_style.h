// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/settings.h"

namespace tickwell::settings_ui {

/// The stored style in a form that a picker can show: with an installed font and a size within its range.
LineStyle OfferedStyle(const LineStyle& stored);

/// The style to store after `offered`, the shown form of `stored`, was edited into `picked`. Font and size
/// are replaced only if they were changed, so that opening the picker does not lose a font that is not
/// installed or a size that cannot be shown.
LineStyle PickedStyle(const LineStyle& stored, const LineStyle& offered, const LineStyle& picked);

/// Range of sizes that a picker offers, in points.
inline constexpr qint16 kSmallestSize = 1;
inline constexpr qint16 kLargestSize = 999;

}  // namespace tickwell::settings_ui
