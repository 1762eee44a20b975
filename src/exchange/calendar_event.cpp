// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/calendar_event.h"

#include <limits>

#include "exchange/record_fields.h"
#include "ical_helper/protocol.h"

namespace tickwell::exchange {

namespace {

constexpr int kMost = std::numeric_limits<int>::max();
constexpr int kLeast = std::numeric_limits<int>::min();
constexpr qsizetype kRowNumbers = 4;  // year, month, day, week

bool TakeDates(const QByteArray& field, QList<QDate>& dates) {
    for (const QByteArray& text : ListItems(field)) {
        dates.append(DateFrom(text));
        if (!dates.last().isValid()) {
            return false;
        }
    }
    return true;
}

bool TakeRules(const QByteArray& field, std::vector<Recurrence>& rules) {
    for (const QByteArray& text : field.isEmpty() ? QByteArrayList() : field.split(ical_helper::kRuleJoint)) {
        const std::optional<Recurrence> rule = RecurrenceFrom(text);
        if (!rule) {
            return false;
        }
        rules.push_back(*rule);
    }
    return true;
}

std::optional<days::Anniversary> RowFrom(const QByteArray& text) {
    const QByteArrayList fields = text.split(';');
    std::vector<int> numbers;
    for (const QByteArray& field : fields) {
        const std::optional<int> number = NumberFrom(field, kLeast, kMost);
        if (!number || fields.size() != kRowNumbers) {
            return std::nullopt;
        }
        numbers.push_back(*number);
    }
    return days::Anniversary{.name = {},
                             .year = numbers.at(0),
                             .month = numbers.at(1),
                             .day = numbers.at(2),
                             .week = numbers.at(3)};
}

void TakeFlags(const QByteArray& flags, CalendarEvent& event) {
    event.isNamed = flags.contains(ical_helper::kNamed);
    event.isCancelled = flags.contains(ical_helper::kCancelled);
    event.isUnreadable = flags.contains(ical_helper::kUnreadable);
    event.isDayOff = flags.contains(ical_helper::kOwnDayOff);
    event.hasExclusionRule = flags.contains(ical_helper::kExcluding);
    event.isInUnknownZone = flags.contains(ical_helper::kUnknownZone);
    event.isEndless = flags.contains(ical_helper::kEndless);
}

}  // namespace

std::optional<CalendarEvent> EventFrom(const QByteArray& line) {
    const QByteArrayList fields = line.split(ical_helper::kFieldJoint);
    if (fields.size() != ical_helper::kEventFields || fields[0] != ical_helper::kEventWord) {
        return std::nullopt;
    }
    CalendarEvent event;
    const std::optional<int> number = NumberFrom(fields[1], 1, kMost);
    const std::optional<int> days = fields[6].isEmpty() ? std::optional(1) : NumberFrom(fields[6], 1, kMost);
    event.start = DateFrom(fields[5]);
    event.replaces = DateFrom(fields[10]);
    if (!number || !days || (!fields[5].isEmpty() && !event.start.isValid()) ||
        (!fields[10].isEmpty() && !event.replaces.isValid()) || !TakeRules(fields[7], event.rules) ||
        !TakeDates(fields[8], event.dates) || !TakeDates(fields[9], event.excluded) ||
        !TakeDates(fields[12], event.occurrences)) {
        return std::nullopt;
    }
    TakeFlags(fields[2], event);
    event.line = *number;
    event.name = QString::fromUtf8(QByteArray::fromPercentEncoding(fields[3]));
    event.uid = QByteArray::fromPercentEncoding(fields[4]);
    event.days = *days;
    event.row = RowFrom(QByteArray::fromPercentEncoding(fields[11]));
    return event;
}

}  // namespace tickwell::exchange
