// SPDX-License-Identifier: GPL-3.0-or-later
#include "ical_helper/event_record.h"

#include <libical/ical.h>

#include <QList>
#include <array>
#include <memory>

#include "ical_helper/protocol.h"
#include "ical_helper/rule_record.h"

namespace tickwell::ical_helper {

namespace {

struct FreeComponent {
    void operator()(icalcomponent* component) const { icalcomponent_free(component); }
};
using Component = std::unique_ptr<icalcomponent, FreeComponent>;

/// What must have become as many properties as there are lines: the library drops what it cannot parse.
constexpr std::array kCounted{
    std::pair{"DTSTART", ICAL_DTSTART_PROPERTY},   std::pair{"DTEND", ICAL_DTEND_PROPERTY},
    std::pair{"DURATION", ICAL_DURATION_PROPERTY}, std::pair{"RRULE", ICAL_RRULE_PROPERTY},
    std::pair{"RDATE", ICAL_RDATE_PROPERTY},       std::pair{"EXRULE", ICAL_EXRULE_PROPERTY},
    std::pair{"EXDATE", ICAL_EXDATE_PROPERTY},     std::pair{"RECURRENCE-ID", ICAL_RECURRENCEID_PROPERTY}};

template <typename Take>
void ForEach(icalcomponent& component, icalproperty_kind kind, Take take) {
    for (icalproperty* property = icalcomponent_get_first_property(&component, kind); property != nullptr;
         property = icalcomponent_get_next_property(&component, kind)) {
        take(*property);
    }
}

QByteArray ParameterText(icalproperty& property, icalparameter_kind kind) {
    icalparameter* parameter = icalproperty_get_first_parameter(&property, kind);
    const char* text = parameter == nullptr ? nullptr : icalparameter_get_tzid(parameter);
    return text == nullptr ? QByteArray() : QByteArray(text);
}

/// An event being read.
class Reading {
public:
    Reading(const EventLines& lines, icalcomponent& component) : m_lines(lines), m_component(component) {}

    QByteArray Record(const Period* occurrences);

private:
    void ReadStart();
    void ReadLength();
    void ReadTexts();
    void ReadDates(icalproperty_kind kind, QList<QDate>& dates);
    void ReadRules(const Period* occurrences);
    QDate DateHere(icaltimetype time);
    QDate DateOfProperty(icalproperty& property);
    bool Has(const char* name) const { return m_lines.counts.count(name) > 0; }

    const EventLines& m_lines;
    icalcomponent& m_component;
    QByteArray m_flags;
    QByteArray m_uid;
    icaltimetype m_startTime = icaltime_null_time();
    icaltimezone* m_zone = nullptr;  // of the event; null if it has none or an unknown one
    bool m_isInUnknownZone = false;
    QDate m_start;
    qint64 m_days = 1;
    QByteArrayList m_rules;
    QList<QDate> m_dates;
    QList<QDate> m_excluded;
    QList<QDate> m_replaced;
    QList<QDate> m_occurrences;
};

/// The date of a moment in the event's zone. One in UTC may fall on another date there. Some programs write
/// the first or last second of a date in UTC for the date itself.
QDate Reading::DateHere(icaltimetype time) {
    if (!time.is_date && icaltime_is_utc(time) && !icaltime_is_utc(m_startTime)) {
        const bool isWhole =
            m_startTime.is_date && (time.hour + time.minute + time.second == 0 ||
                                    (time.hour == 23 && time.minute == 59 && time.second == 59));
        const bool isUnknown = m_startTime.is_date ? !isWhole : m_zone == nullptr && m_isInUnknownZone;
        if (isUnknown && !m_flags.contains(kUnknownZone)) {
            m_flags += kUnknownZone;
        }
        if (m_zone != nullptr) {
            time = icaltime_convert_to_zone(time, m_zone);
        }
    }
    return DateOf(time);
}

QDate Reading::DateOfProperty(icalproperty& property) {
    const icalvalue* value = icalproperty_get_value(&property);
    switch (icalvalue_isa(value)) {
        case ICAL_DATE_VALUE:
            return DateHere(icalvalue_get_date(value));
        case ICAL_DATETIME_VALUE:
            return DateHere(icalvalue_get_datetime(value));
        case ICAL_DATETIMEDATE_VALUE:
            return DateHere(icalvalue_get_datetimedate(value));
        case ICAL_PERIOD_VALUE:
            return DateHere(icalvalue_get_period(value).start);
        case ICAL_DATETIMEPERIOD_VALUE: {
            const icaldatetimeperiodtype both = icalvalue_get_datetimeperiod(value);
            return DateHere(icaltime_is_null_time(both.time) ? both.period.start : both.time);
        }
        default:
            return {};
    }
}

void Reading::ReadStart() {
    ForEach(m_component, ICAL_DTSTART_PROPERTY, [this](icalproperty& property) {
        m_startTime = icalproperty_get_dtstart(&property);
        if (const QByteArray id = ParameterText(property, ICAL_TZID_PARAMETER); !id.isEmpty()) {
            m_zone = icaltimezone_get_builtin_timezone(id.constData());
            m_isInUnknownZone = m_zone == nullptr;
        }
    });
    m_start = icaltime_is_null_time(m_startTime) ? QDate() : DateOf(m_startTime);
}

/// Only whole days are counted: an event of hours has the date of its beginning.
void Reading::ReadLength() {
    if (!m_startTime.is_date || !m_start.isValid()) {
        return;
    }
    ForEach(m_component, ICAL_DTEND_PROPERTY, [this](icalproperty& property) {
        const QDate end = DateOf(icalproperty_get_dtend(&property));
        m_days = end.isValid() ? m_start.daysTo(end) : 0;
        if (!end.isValid()) {
            m_flags += kUnreadable;
        }
    });
    ForEach(m_component, ICAL_DURATION_PROPERTY, [this](icalproperty& property) {
        const icaldurationtype length = icalproperty_get_duration(&property);
        m_days = length.is_neg != 0 ? 1 : qint64{7} * length.weeks + length.days;
    });
    m_days = std::max<qint64>(1, m_days);
}

void Reading::ReadTexts() {
    if (Has("SUMMARY")) {
        m_flags += kNamed;
    }
    if (const char* text = icalcomponent_get_uid(&m_component)) {
        m_uid = text;
    }
    if (icalcomponent_get_status(&m_component) == ICAL_STATUS_CANCELLED) {
        m_flags += kCancelled;
    }
    if (Has(kDayName)) {
        m_flags += kOwnDayOff;
    }
    if (Has("EXRULE")) {
        m_flags += kExcluding;
    }
}

void Reading::ReadDates(icalproperty_kind kind, QList<QDate>& dates) {
    ForEach(m_component, kind, [this, &dates](icalproperty& property) {
        const QDate date = DateOfProperty(property);
        if (date.isValid()) {
            dates.append(date);
        } else {
            m_flags += kUnreadable;
        }
    });
}

void Reading::ReadRules(const Period* occurrences) {
    qsizetype number = 0;
    ForEach(m_component, ICAL_RRULE_PROPERTY, [&](icalproperty& property) {
        const icalrecurrencetype rule = icalproperty_get_rrule(&property);
        const QDate until = icaltime_is_null_time(rule.until) ? QDate() : DateHere(rule.until);
        const auto record =
            number < m_lines.rules.size() ? RuleRecord(rule, m_lines.rules.at(number), until) : std::nullopt;
        ++number;
        if (!record || !m_start.isValid()) {
            m_flags += kUnreadable;
            return;
        }
        m_rules.append(*record);
        if (occurrences != nullptr && !AddOccurrences(rule, m_startTime, *occurrences, m_occurrences) &&
            !m_flags.contains(kEndless)) {
            m_flags += kEndless;
        }
    });
}

QByteArray ListOf(const QList<QDate>& dates) {
    QByteArrayList texts;
    for (const QDate& date : dates) {
        texts.append(DateText(date));
    }
    return texts.join(kListJoint);
}

QByteArray Reading::Record(const Period* occurrences) {
    ReadStart();
    ReadLength();
    ReadTexts();
    ReadDates(ICAL_RDATE_PROPERTY, m_dates);
    ReadDates(ICAL_EXDATE_PROPERTY, m_excluded);
    ReadDates(ICAL_RECURRENCEID_PROPERTY, m_replaced);
    ReadRules(occurrences);
    for (const auto& [name, kind] : kCounted) {
        const auto lines = m_lines.counts.find(name);
        const int properties = icalcomponent_count_properties(&m_component, kind);
        if (properties < (lines == m_lines.counts.end() ? 0 : lines->second)) {
            m_flags += kUnreadable;
        }
    }
    const QByteArrayList fields{kEventWord,
                                QByteArray::number(m_lines.number),
                                m_flags,
                                m_lines.name.toUtf8().toPercentEncoding(),
                                m_uid.toPercentEncoding(),
                                DateText(m_start),
                                QByteArray::number(m_days),
                                m_rules.join(kRuleJoint),
                                ListOf(m_dates),
                                ListOf(m_excluded),
                                ListOf(m_replaced.mid(0, 1)),
                                m_lines.row.toPercentEncoding(),
                                ListOf(m_occurrences)};
    return fields.join(kFieldJoint);
}

}  // namespace

QByteArray EventRecord(const EventLines& event, const Period* occurrences) {
    icalerror_clear_errno();
    const QByteArray text = event.text + "END:VEVENT\r\n";
    const Component component(icalparser_parse_string(text.constData()));
    if (component == nullptr || icalcomponent_isa(component.get()) != ICAL_VEVENT_COMPONENT) {
        const QByteArray nothing(kEventFields - 3, kFieldJoint);
        return QByteArray(kEventWord) + kFieldJoint + QByteArray::number(event.number) + kFieldJoint +
               kUnreadable + nothing;
    }
    return Reading(event, *component).Record(occurrences);
}

}  // namespace tickwell::ical_helper
