// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QPalette>

#include "days/month_grid.h"

namespace tickwell {

/// What a day's number is drawn in on buttons of this palette: the colour itself on a light one, a paler
/// shade on a dark one, where red and blue could not be read. Black is the palette's own colour of text.
QColor ShadeOf(DayColor color, const QPalette& palette);

}  // namespace tickwell
