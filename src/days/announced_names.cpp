// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/announced_names.h"

#include "core/old_calendar.h"
#include "core/solar_terms.h"
#include "days/day_rule.h"

namespace tickwell::days {

using namespace Qt::StringLiterals;

namespace {

/// The day's date in the old calendar, if the settings select it.
QStringList OldDateToAnnounce(const CalendarSettings& calendar, QDate day) {
    const auto oldDate = calendar.announcesOldDate ? OldDateOf(day) : std::nullopt;
    return oldDate ? QStringList{OldDateText(*oldDate) + u' ' + RokuyoName(*oldDate)} : QStringList();
}

/// Its season name, likewise.
QStringList SeasonToAnnounce(const CalendarSettings& calendar, QDate day) {
    const QString season = calendar.announcesSeasons ? SeasonName(day) : QString();
    return season.isEmpty() ? QStringList() : QStringList{season};
}

/// Its anniversaries, then its days off.
QStringList StoredNames(const AnnouncementParts& parts, QDate day) {
    const int code = parts.further.corrections.weekdayAnniversaries ? WeekCode(day) : AnnouncedWeekCode(day);
    const QString query = AnniversaryQuery(day.year(), day.month(), day.day(), code);
    QStringList names;
    for (const store::ResultRow& row : parts.dayDatabase.RunQueryForFirst(kMostAnnounced, query)) {
        names.append(row.Text(u"Name"));
    }
    return names + parts.holidays.NamesOn(day);
}

}  // namespace

int AnnouncedWeekCode(QDate day) {
    const int code = WeekCode(day);
    return 10 * (code % 10) + code / 10;
}

QStringList AnnouncedNames(const AnnouncementParts& parts, QDate day) {
    const CalendarSettings& calendar = parts.further.calendar;
    return StoredNames(parts, day) + OldDateToAnnounce(calendar, day) + SeasonToAnnounce(calendar, day);
}

QStringList NamesToTell(const AnnouncementParts& parts, QDate day) {
    return StoredNames(parts, day) + SeasonToAnnounce(parts.further.calendar, day);
}

}  // namespace tickwell::days
