// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QPalette>

#include "days/month_grid.h"

namespace tickwell::days {

/// The colour of a day's number on buttons of this palette: the colour itself on a light palette, a paler
/// shade on a dark one, where red and blue are illegible. Black is the palette's text colour.
QColor ShadeOf(DayColor color, const QPalette& palette);

}  // namespace tickwell::days
