// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QString>
#include <QTime>

#include "core/era.h"
#include "core/language.h"

namespace tickwell {

/// The time `now`. `displayMode`: 0 with unit words, else with colons. `hourStyle`: 0 the twelve-hour clock
/// with a morning or afternoon word (noon and midnight are hour 0), else the 24-hour clock.
QString ClockText(QTime now, qint32 language, qint32 displayMode, qint32 hourStyle);

/// The date `today`. `yearStyle`: 0 the year of the era, or in English the month's name; else the western
/// year, or the month's number. `displayMode`: 0 standard; in Japanese anything else, in English exactly 1,
/// is the short form, in which an era's first year is 1. A date without an era has its western year.
QString DateText(QDate today, qint32 language, qint32 yearStyle, qint32 displayMode,
                 const EraStyle& eras = {});

}  // namespace tickwell
