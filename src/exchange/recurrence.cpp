// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/recurrence.h"

#include <algorithm>
#include <array>
#include <limits>

#include "exchange/record_fields.h"
#include "ical_helper/protocol.h"

namespace tickwell::exchange {

namespace {

constexpr std::array<QByteArrayView, 7> kWeekdays{"SU", "MO", "TU", "WE", "TH", "FR", "SA"};

// What the library can return.
constexpr int kMostInterval = 32767;
constexpr int kMostMonth = 13;
constexpr int kMostMonthDay = 32;
constexpr int kMostPosition = 400;

std::optional<Frequency> FrequencyFrom(const QByteArray& name) {
    using enum Frequency;
    constexpr std::array kNames{std::pair{"YEARLY", Yearly},   std::pair{"MONTHLY", Monthly},
                                std::pair{"WEEKLY", Weekly},   std::pair{"DAILY", Daily},
                                std::pair{"HOURLY", OfHours},  std::pair{"MINUTELY", OfHours},
                                std::pair{"SECONDLY", OfHours}};
    const auto* found = std::find_if(kNames.begin(), kNames.end(),
                                     [&name](const auto& known) { return name == known.first; });
    return found == kNames.end() ? std::nullopt : std::optional(found->second);
}

bool TakeNumbers(const QByteArray& field, int least, int most, std::vector<int>& numbers) {
    for (const QByteArray& text : ListItems(field)) {
        const std::optional<int> number = NumberFrom(text, least, most);
        if (!number || *number == 0) {
            return false;
        }
        numbers.push_back(*number);
    }
    return true;
}

bool TakeWeekdays(const QByteArray& field, std::vector<NthWeekday>& weekdays) {
    for (const QByteArray& text : ListItems(field)) {
        const auto known = std::find(kWeekdays.begin(), kWeekdays.end(),
                                     QByteArrayView(text).last(std::min<qsizetype>(2, text.size())));
        const QByteArray digits = text.chopped(std::min<qsizetype>(2, text.size()));
        const std::optional<int> position =
            digits.isEmpty() ? std::optional(0) : NumberFrom(digits, -kMostPosition, kMostPosition);
        if (known == kWeekdays.end() || !position) {
            return false;
        }
        weekdays.push_back({*position, static_cast<int>(known - kWeekdays.begin()) + 1});
    }
    return true;
}

template <typename Values, typename TextOf>
void AppendList(QByteArray& text, const char* name, const Values& values, TextOf textOf) {
    char joint = '=';
    for (const auto& value : values) {
        text += joint == '=' ? QByteArray(name) : QByteArray();
        text += joint + textOf(value);
        joint = ',';
    }
}

}  // namespace

std::optional<Recurrence> RecurrenceFrom(const QByteArray& record) {
    const QByteArrayList fields = record.split(ical_helper::kRulePartJoint);
    if (fields.size() != ical_helper::kRuleFields) {
        return std::nullopt;
    }
    const std::optional<Frequency> frequency = FrequencyFrom(fields[0]);
    const std::optional<int> interval = NumberFrom(fields[1], 1, kMostInterval);
    const std::optional<int> count = NumberFrom(fields[2], 0, std::numeric_limits<int>::max());
    Recurrence rule;
    rule.until = DateFrom(fields[3]);
    const bool isRead = frequency && interval && count && (fields[3].isEmpty() || rule.until.isValid()) &&
                        TakeNumbers(fields[4], 1, kMostMonth, rule.months) &&
                        TakeNumbers(fields[5], -kMostMonthDay, kMostMonthDay, rule.monthDays) &&
                        TakeWeekdays(fields[6], rule.weekdays) &&
                        TakeNumbers(fields[7], -kMostPosition, kMostPosition, rule.positions);
    if (!isRead) {
        return std::nullopt;
    }
    rule.frequency = *frequency;
    rule.interval = *interval;
    rule.count = *count;
    rule.byWeekNumber = fields[8].contains(ical_helper::kByWeek);
    rule.byYearDay = fields[8].contains(ical_helper::kByYearDay);
    rule.byTime = fields[8].contains(ical_helper::kByTime);
    rule.ofOtherCalendar = fields[8].contains(ical_helper::kOtherCalendar) ||
                           std::find(rule.months.begin(), rule.months.end(), kMostMonth) != rule.months.end();
    return rule;
}

QByteArray RuleText(const Recurrence& rule) {
    QByteArray text = rule.frequency == Frequency::Yearly ? "FREQ=YEARLY" : "FREQ=MONTHLY";
    const auto number = [](int value) { return QByteArray::number(value); };
    AppendList(text, ";BYMONTH", rule.months, number);
    AppendList(text, ";BYMONTHDAY", rule.monthDays, number);
    AppendList(text, ";BYDAY", rule.weekdays, [](const NthWeekday& day) -> QByteArray {
        return QByteArray::number(day.position) +
               kWeekdays.at(static_cast<std::size_t>(day.weekday - 1)).toByteArray();
    });
    if (rule.until.isValid()) {
        text += ";UNTIL=" + CompactDate(rule.until);
    }
    return text;
}

}  // namespace tickwell::exchange
