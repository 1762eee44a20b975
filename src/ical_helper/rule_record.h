// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <libical/ical.h>

#include <QByteArray>
#include <QDate>
#include <QList>
#include <optional>

#include "ical_helper/period.h"

namespace tickwell::ical_helper {

/// The date of a moment in the zone that it is written in; invalid if it is none.
QDate DateOf(const icaltimetype& time);

/// "20260310"; empty for an invalid date.
QByteArray DateText(QDate date);

/// A rule in the form of protocol.h. `until`: its UNTIL in the zone of the event. nullopt if the library has
/// not understood all of `written`, the rule as it stands in the file.
std::optional<QByteArray> RuleRecord(const icalrecurrencetype& rule, const QByteArray& written, QDate until);

/// Adds the dates on which a rule falls in a period; false if that takes too long.
bool AddOccurrences(const icalrecurrencetype& rule, const icaltimetype& start, const Period& period,
                    QList<QDate>& dates);

}  // namespace tickwell::ical_helper
