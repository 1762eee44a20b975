// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ical_helper/event_lines.h"
#include "ical_helper/period.h"

namespace tickwell::ical_helper {

/// The line that protocol.h describes for an event, without its line feed; the library parses the event's
/// text. `occurrences`: the period in which its occurrences are wanted; null if they are not.
QByteArray EventRecord(const EventLines& event, const Period* occurrences);

}  // namespace tickwell::ical_helper
