// SPDX-License-Identifier: GPL-3.0-or-later
#include "ical_helper/calendar_file.h"

#include <libical/ical.h>

#include <ctime>
#include <optional>

#include "ical_helper/event_lines.h"
#include "ical_helper/protocol.h"

namespace tickwell::ical_helper {

namespace {

constexpr int kEventsBetween = 500;  // two reports of the progress

struct Refused {
    const char* word = nullptr;
    int line = 0;
};

/// Follows the components of a file.
class Walk {
public:
    Walk(QByteArrayView file, const Wanted& wanted, const std::function<bool(const QByteArray&)>& write)
        : m_lines(file, IsWantedLine), m_wanted(wanted), m_write(write) {}

    /// False if `write` has stopped it. Throws Refused and ContentLineError.
    bool Run();

private:
    void Begin(const QByteArray& name, int line);
    bool End(const QByteArray& name, int line);
    bool WriteEvent();

    ContentLines m_lines;
    const Wanted& m_wanted;
    const std::function<bool(const QByteArray&)>& m_write;
    QByteArrayList m_open;  // names of the components, from the outermost one on
    std::optional<EventLines> m_event;
    qsizetype m_eventDepth = 0;
    int m_events = 0;
    int m_others = 0;
};

bool Walk::Run() {
    int last = 0;
    bool isFirst = true;
    while (const auto line = m_lines.Next()) {
        last = line->number;
        if (isFirst && (line->name != "BEGIN" || line->value.trimmed().toUpper() != "VCALENDAR")) {
            throw Refused{kNoCalendar, last};
        }
        isFirst = false;
        if (line->name == "BEGIN") {
            Begin(line->value.trimmed().toUpper(), last);
        } else if (line->name == "END") {
            if (!End(line->value.trimmed().toUpper(), last)) {
                return false;
            }
        } else if (m_event && m_open.size() == m_eventDepth) {
            AddLine(*m_event, *line);
            if (m_event->text.size() > kMostEventBytes) {
                throw Refused{kTooBig, m_event->number};
            }
        }
    }
    if (isFirst || !m_open.isEmpty()) {
        throw Refused{isFirst ? kNoCalendar : kCutOff, last};
    }
    return m_write(QByteArray(kOtherWord) + kFieldJoint + QByteArray::number(m_others));
}

void Walk::Begin(const QByteArray& name, int line) {
    if (m_open.size() >= kMostDepth) {
        throw Refused{kTooDeep, line};
    }
    m_open.append(name);
    if (!m_event && name == "VEVENT") {
        m_event = BegunEvent(line);
        m_eventDepth = m_open.size();
    } else if (!m_event && (name == "VTODO" || name == "VJOURNAL")) {
        ++m_others;
    }
}

bool Walk::End(const QByteArray& name, int line) {
    if (m_open.isEmpty() || m_open.last() != name) {
        throw Refused{kWrongEnd, line};
    }
    const bool endsEvent = m_event && m_open.size() == m_eventDepth;
    m_open.removeLast();
    return !endsEvent || WriteEvent();
}

bool Walk::WriteEvent() {
    const bool hasTime = std::clock() < clock_t{kMostSeconds / 2} * CLOCKS_PER_SEC;
    const bool isWanted = hasTime && m_wanted.events.contains(m_events);
    const QByteArray record = EventRecord(*m_event, isWanted ? &m_wanted.period : nullptr);
    m_event.reset();
    ++m_events;
    const bool reports = m_events % kEventsBetween == 0;
    return m_write(record) &&
           (!reports || m_write(QByteArray(kAtWord) + kFieldJoint + QByteArray::number(m_lines.Position())));
}

}  // namespace

QByteArray Refusal(const char* word, int line) {
    return QByteArray(kRefusedWord) + kFieldJoint + word + kFieldJoint + QByteArray::number(line);
}

int ReadCalendar(QByteArrayView file, const Wanted& wanted,
                 const std::function<bool(const QByteArray&)>& write) {
    icalerror_set_errors_are_fatal(0);
    icaltimezone_set_builtin_tzdata(0);  // the system's time zones
    QByteArray refusal;
    try {
        if (Walk(file, wanted, write).Run()) {
            return kEndDone;
        }
    } catch (const Refused& refused) {
        refusal = Refusal(refused.word, refused.line);
    } catch (const ContentLineError& error) {
        const bool isLong = error.Problem() == ContentLineError::Kind::TooLong;
        refusal = Refusal(isLong ? kTooLong : kNotUtf8, error.Line());
    }
    if (!refusal.isEmpty()) {
        write(refusal);
    }
    return kEndRefused;
}

}  // namespace tickwell::ical_helper
