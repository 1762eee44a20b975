// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/announced_names.h"

#include "core/old_calendar.h"
#include "core/solar_terms.h"
#include "days/day_rule.h"

namespace tickwell::days {

using namespace Qt::StringLiterals;

namespace {

/// The day's date in the old calendar and its season name, each if the settings select it.
QStringList OldCalendarTexts(const CalendarSettings& calendar, QDate day) {
    QStringList texts;
    if (const auto oldDate = calendar.announcesOldDate ? OldDateOf(day) : std::nullopt) {
        texts.append(OldDateText(*oldDate) + u' ' + RokuyoName(*oldDate));
    }
    if (const QString season = SeasonName(day); calendar.announcesSeasons && !season.isEmpty()) {
        texts.append(season);
    }
    return texts;
}

}  // namespace

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
    return names + parts.holidays.NamesOn(day) + OldCalendarTexts(parts.further.calendar, day);
}

}  // namespace tickwell::days
