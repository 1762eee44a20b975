// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QMap>
#include <QStringList>

#include "core/holiday_list.h"

namespace tickwell {

/// The days off of a year: those of the list if it covers the year, otherwise those of the law. A day that
/// the list only calls 休日 gets the law's name if there is one. Empty if neither covers the year.
QMap<QDate, QString> DaysOffOfYear(int year, const HolidayList* list);

/// The days on which list and law differ in the years that both cover, one line each: 「2020年7月24日：
/// 法律では「スポーツの日」、データでは「海の日」です。」.
QStringList DifferencesFromLaw(const HolidayList& list);

}  // namespace tickwell
