// SPDX-License-Identifier: GPL-3.0-or-later
#include "ical_helper/rule_record.h"

#include <algorithm>
#include <array>
#include <span>

#include "ical_helper/protocol.h"

namespace tickwell::ical_helper {

namespace {

// A daily event takes as many steps in 130 years; one of each second ends here.
constexpr int kMostSteps = 50'000;

using Numbers = std::span<const short>;

/// The values of a list of the library, which ends early at a mark.
Numbers Used(Numbers all) {
    const auto end = std::find(all.begin(), all.end(), short(ICAL_RECURRENCE_ARRAY_MAX));
    return {all.begin(), end};
}

QByteArray WeekdayText(short day) {
    const int position = icalrecurrencetype_day_position(day);
    const char* name = icalrecur_weekday_to_string(icalrecurrencetype_day_day_of_week(day));
    return (position == 0 ? QByteArray() : QByteArray::number(position)) + (name == nullptr ? "" : name);
}

template <typename TextOf>
QByteArray Listed(Numbers numbers, TextOf textOf) {
    QByteArrayList texts;
    for (const short number : numbers) {
        texts.append(textOf(number));
    }
    return texts.join(kListJoint);
}

QByteArray Listed(Numbers numbers) {
    return Listed(numbers, [](short number) { return QByteArray::number(number); });
}

struct Part {
    QByteArrayView name;
    Numbers values;
};

std::array<Part, 9> PartsOf(const icalrecurrencetype& rule) {
    return {Part{"BYMONTH", Used(rule.by_month)},    Part{"BYMONTHDAY", Used(rule.by_month_day)},
            Part{"BYDAY", Used(rule.by_day)},        Part{"BYSETPOS", Used(rule.by_set_pos)},
            Part{"BYWEEKNO", Used(rule.by_week_no)}, Part{"BYYEARDAY", Used(rule.by_year_day)},
            Part{"BYHOUR", Used(rule.by_hour)},      Part{"BYMINUTE", Used(rule.by_minute)},
            Part{"BYSECOND", Used(rule.by_second)}};
}

/// Whether the library has kept a part of the written rule. It drops values that it does not accept.
bool IsKept(QByteArrayView part, const icalrecurrencetype& rule) {
    const qsizetype equals = part.indexOf('=');
    const QByteArray name = part.first(std::max<qsizetype>(0, equals)).trimmed().toByteArray().toUpper();
    const QByteArray value = part.sliced(equals + 1).trimmed().toByteArray();
    for (const Part& known : PartsOf(rule)) {
        if (known.name == QByteArrayView(name)) {
            return static_cast<qsizetype>(known.values.size()) == value.count(',') + 1;
        }
    }
    if (name == "INTERVAL" || name == "COUNT") {
        return value.toInt() == (name == "COUNT" ? rule.count : rule.interval) && value.toInt() > 0;
    }
    return name == "FREQ" || (name == "UNTIL" && !icaltime_is_null_time(rule.until)) || name == "WKST" ||
           name == "RSCALE" || name == "SKIP";
}

bool IsAllKept(const QByteArray& written, const icalrecurrencetype& rule) {
    const QList<QByteArray> parts = written.split(';');
    return std::all_of(parts.begin(), parts.end(), [&rule](const QByteArray& part) {
        return part.trimmed().isEmpty() || IsKept(part, rule);
    });
}

QByteArray FurtherParts(const icalrecurrencetype& rule) {
    const auto parts = PartsOf(rule);
    QByteArray letters;
    if (!parts.at(4).values.empty()) {
        letters += kByWeek;
    }
    if (!parts.at(5).values.empty()) {
        letters += kByYearDay;
    }
    if (!parts.at(6).values.empty() || !parts.at(7).values.empty() || !parts.at(8).values.empty()) {
        letters += kByTime;
    }
    const bool hasLeapMonth =
        std::any_of(parts.at(0).values.begin(), parts.at(0).values.end(),
                    [](short month) { return icalrecurrencetype_month_is_leap(month); });
    if (rule.rscale != nullptr || rule.skip != ICAL_SKIP_OMIT || hasLeapMonth) {
        letters += kOtherCalendar;
    }
    return letters;
}

}  // namespace

QDate DateOf(const icaltimetype& time) {
    return time.year < 1 || time.year > 9999 ? QDate() : QDate(time.year, time.month, time.day);
}

QByteArray DateText(QDate date) {
    return date.isValid() ? date.toString(QStringLiteral("yyyyMMdd")).toLatin1() : QByteArray();
}

std::optional<QByteArray> RuleRecord(const icalrecurrencetype& rule, const QByteArray& written, QDate until) {
    const char* frequency = icalrecur_freq_to_string(rule.freq);
    if (rule.freq == ICAL_NO_RECURRENCE || frequency == nullptr || !IsAllKept(written, rule)) {
        return std::nullopt;
    }
    if (!icaltime_is_null_time(rule.until) && !until.isValid()) {
        return std::nullopt;
    }
    const auto parts = PartsOf(rule);
    const QByteArray further = FurtherParts(rule);
    const QByteArrayList fields{frequency,
                                QByteArray::number(rule.interval),
                                QByteArray::number(rule.count),
                                DateText(until),
                                further.contains(kOtherCalendar) ? QByteArray() : Listed(parts.at(0).values),
                                Listed(parts.at(1).values),
                                Listed(parts.at(2).values, WeekdayText),
                                Listed(parts.at(3).values),
                                further};
    return fields.join(kRulePartJoint);
}

bool AddOccurrences(const icalrecurrencetype& rule, const icaltimetype& start, const Period& period,
                    QList<QDate>& dates) {
    icalrecur_iterator* iterator = icalrecur_iterator_new(rule, start);
    if (iterator == nullptr) {
        return false;
    }
    bool isComplete = false;
    for (int step = 0; step < kMostSteps && dates.size() <= kMostOccurrences && !isComplete; ++step) {
        const icaltimetype next = icalrecur_iterator_next(iterator);
        const QDate date = icaltime_is_null_time(next) ? QDate() : DateOf(next);
        isComplete = !date.isValid() || date >= period.end;
        if (!isComplete && date >= period.first && !dates.contains(date)) {
            dates.append(date);
        }
    }
    icalrecur_iterator_free(iterator);
    return isComplete;
}

}  // namespace tickwell::ical_helper
