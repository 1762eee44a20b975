// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/announced_names.h"

#include "days/day_rule.h"

namespace tickwell::days {

using namespace Qt::StringLiterals;

int AnnouncedWeekCode(QDate day) {
    const int code = WeekCode(day);
    return 10 * (code % 10) + code / 10;
}

QStringList AnnouncedNames(store::DayDatabase& database, QDate day) {
    QStringList names;
    for (const QString& query : {AnniversaryQuery(day.year(), day.month(), day.day(), AnnouncedWeekCode(day)),
                                 HolidayQuery(day.month(), day.day())}) {
        for (const store::ResultRow& row : database.RunQueryForFirst(kMostAnnounced, query)) {
            names.append(row.Text(u"Name"));
        }
    }
    return names;
}

}  // namespace tickwell::days
