// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <vector>

#include "days/anniversary.h"
#include "exchange/recurrence.h"

namespace tickwell::exchange {

/// What an event says about its days.
struct DayRule {
    QDate start;                     ///< the first day on which it falls
    std::optional<Recurrence> rule;  ///< nullopt: only on that day

    bool operator==(const DayRule&) const = default;
};

/// The events that fall on exactly the days of an anniversary: one; two for a row with both a day and a week;
/// none if it falls on no day. An anniversary without a year begins in 1990, the one of 29 February in 2000.
std::vector<DayRule> RulesOf(const days::Anniversary& row);

/// Whether an anniversary falls on a date.
bool FallsOn(const days::Anniversary& row, QDate date);

/// 「毎年 6月10日」、「毎月 第2月曜」、「2026年3月10日」。
QString WhenText(const days::Anniversary& row);

/// 「2026年3月10日」; empty for an invalid date.
QString DayText(QDate date);

}  // namespace tickwell::exchange
