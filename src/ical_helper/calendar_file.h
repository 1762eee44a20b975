// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QSet>
#include <functional>

#include "ical_helper/event_record.h"

namespace tickwell::ical_helper {

/// Which occurrences are wanted.
struct Wanted {
    QSet<int> events;  ///< numbers of the events, counted from 0
    Period period;
};

/// Reads a file and passes each line of output, without its line feed, to `write`, which returns false to
/// stop. Returns the exit code.
int ReadCalendar(QByteArrayView file, const Wanted& wanted,
                 const std::function<bool(const QByteArray&)>& write);

/// The line that refuses a file; `line` is 0 if none is to blame.
QByteArray Refusal(const char* word, int line);

}  // namespace tickwell::ical_helper
