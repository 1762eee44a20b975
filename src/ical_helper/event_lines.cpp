// SPDX-License-Identifier: GPL-3.0-or-later
#include "ical_helper/event_lines.h"

#include <algorithm>
#include <array>

#include "ical_helper/protocol.h"

namespace tickwell::ical_helper {

namespace {

constexpr std::array<QByteArrayView, 14> kWanted{"BEGIN",         "END",    "SUMMARY", "DTSTART", "DTEND",
                                                 "DURATION",      "RRULE",  "RDATE",   "EXDATE",  "EXRULE",
                                                 "RECURRENCE-ID", "STATUS", "UID",     "VERSION"};

}  // namespace

bool IsWantedLine(const QByteArray& name) {
    return std::find(kWanted.begin(), kWanted.end(), QByteArrayView(name)) != kWanted.end() ||
           name == kRowName || name == kDayName;
}

EventLines BegunEvent(int line) {
    return {.number = line, .text = "BEGIN:VEVENT\r\n", .counts = {}, .rules = {}, .name = {}, .row = {}};
}

void AddLine(EventLines& event, const ContentLine& line) {
    ++event.counts[line.name];
    if (line.name == "SUMMARY") {
        event.name = UnescapedText(line.value);
        return;
    }
    if (line.name == kRowName) {
        event.row = line.value;
        return;
    }
    if (line.name == "RRULE") {
        event.rules.append(line.value);
    }
    event.text += line.name + line.parameters + ':' + line.value + "\r\n";
}

}  // namespace tickwell::ical_helper
