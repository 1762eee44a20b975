// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <vector>

#include "days/day_list_row.h"
#include "store/day_database.h"

namespace tickwell {

/// How many entries are ticked: "現在 2項目".
QString TickedText(qsizetype ticked);

/// Takes the ticked rows of the list out of the book, the last one first: each with all rows equal to what
/// the list says of it, which may be none or other ones (WeekOfListText). An entry that cannot be read or
/// deleted ends it; those after it are gone by then, those before it stay. `isTicked`: one for each of
/// `rows`. Throws RunTimeError.
void DeleteTicked(DayDatabase& database, const QList<DayListRow>& rows, const std::vector<bool>& isTicked);

}  // namespace tickwell
