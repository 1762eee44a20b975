// SPDX-License-Identifier: GPL-3.0-or-later
// Prints for each day from 1900 to 2100 a line with the day, the old date, and the name of the day if it has
// one.

#include <QTextStream>

#include "core/old_calendar.h"
#include "core/solar_terms.h"

using namespace tickwell;

int main() {
    QTextStream out(stdout);
    const QDate end(2101, 1, 1);
    for (QDate day(1900, 1, 1); day < end; day = day.addDays(1)) {
        const auto old = OldDateOf(day);
        out << day.toString(Qt::ISODate) << '\t' << (old ? OldDateIso(*old) : QString()) << '\t'
            << SeasonName(day) << '\n';
    }
    return 0;
}
