// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QMap>
#include <QStringList>

#include "core/holiday_list.h"

namespace tickwell {

/// The days off of a year: those of the list if it covers the year, else those of the law. Days that the list
/// calls 休日 have the law's name where the law has one. Empty if neither knows the year.
QMap<QDate, QString> DaysOffOfYear(int year, const HolidayList* list);

/// The days on which the list and the law differ in the years that both know, a line each: 「2020年7月24日：
/// 法律では「スポーツの日」、データでは「海の日」」.
QStringList DifferencesFromLaw(const HolidayList& list);

}  // namespace tickwell
