// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/announced_names.h"

#include "days/day_rule.h"

namespace tickwell::days {

using namespace Qt::StringLiterals;

int AnnouncedWeekCode(QDate day) {
    const int code = WeekCode(day);
    return 10 * (code % 10) + code / 10;
}

QStringList AnnouncedNames(const AnnouncementParts& parts, QDate day) {
    const int code = parts.further.corrections.weekdayAnniversaries ? WeekCode(day) : AnnouncedWeekCode(day);
    const QString query = AnniversaryQuery(day.year(), day.month(), day.day(), code);
    QStringList names;
    for (const store::ResultRow& row : parts.dayDatabase.RunQueryForFirst(kMostAnnounced, query)) {
        names.append(row.Text(u"Name"));
    }
    return names + parts.holidays.NamesOn(day);
}

}  // namespace tickwell::days
