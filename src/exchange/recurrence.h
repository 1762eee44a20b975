// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDate>
#include <optional>
#include <vector>

namespace tickwell::exchange {

enum class Frequency { Yearly, Monthly, Weekly, Daily, OfHours };

/// A weekday of a recurrence rule.
struct NthWeekday {
    int position = 0;  ///< 2: the second; -1: the last; 0: each
    int weekday = 0;   ///< 1 Sunday to 7 Saturday

    bool operator==(const NthWeekday&) const = default;
};

/// A recurrence rule of iCalendar.
struct Recurrence {
    Frequency frequency = Frequency::Yearly;
    int interval = 1;
    int count = 0;  ///< 0: no limit
    QDate until;    ///< invalid: no limit
    std::vector<int> months;
    std::vector<int> monthDays;  ///< negative: counted from the end of the month
    std::vector<NthWeekday> weekdays;
    std::vector<int> positions;  ///< BYSETPOS
    bool byWeekNumber = false;
    bool byYearDay = false;
    bool byTime = false;
    bool ofOtherCalendar = false;

    bool operator==(const Recurrence&) const = default;
};

/// Parses a rule as tickwell-ical writes it (see its protocol.h); nullopt if it is not one.
std::optional<Recurrence> RecurrenceFrom(const QByteArray& record);

/// The value of an RRULE; for rules without the parts that only flags tell of.
QByteArray RuleText(const Recurrence& rule);

}  // namespace tickwell::exchange
