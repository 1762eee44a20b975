// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QString>
#include <QTime>

#include "core/era.h"
#include "core/language.h"

namespace tickwell {

/// The text of the time `now`. `displayMode`: 0 for unit words, otherwise colons. `hourStyle`: 0 for the
/// twelve-hour clock with a morning or afternoon word (noon and midnight are hour 0), otherwise the 24-hour
/// clock.
QString ClockText(QTime now, qint32 language, qint32 displayMode, qint32 hourStyle);

/// The text of the date `today`. `yearStyle`: 0 for the year of the era, or in English the month's name;
/// otherwise the western year, or the month's number. `displayMode`: 0 for the standard form. Any other
/// number in Japanese, exactly 1 in English, selects the short form, in which an era's first year is 1. A
/// date without an era gets the western year.
QString DateText(QDate today, qint32 language, qint32 yearStyle, qint32 displayMode,
                 const EraStyle& eras = {});

}  // namespace tickwell
