// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/day_notices.h"

#include <algorithm>

#include "core/minute_of_day.h"

namespace tickwell::days {

namespace {

constexpr int kSecondsInMinute = 60;
constexpr qint64 kDay = 86'400'000;  // ms

QTime TimeOfNotices(const NoticeSettings& settings) {
    return QTime(0, 0).addSecs(std::clamp(settings.time, 0, kLastMinute) * kSecondsInMinute);
}

QStringList ToldNames(QStringList names) {
    names.removeIf([](const QString& name) { return name.trimmed().isEmpty(); });
    names.removeDuplicates();
    return names;
}

}  // namespace

bool IsTimeOfNotices(const NoticeSettings& settings, const QDateTime& now) {
    return now.time() >= TimeOfNotices(settings);
}

QList<DueNotice> DueNotices(const NoticeSettings& settings, const QDateTime& now, const NamesOfDay& namesOf,
                            const ToldNotices& told) {
    QList<DueNotice> due;
    if (!settings.tellsDays || !IsTimeOfNotices(settings, now)) {
        return due;
    }
    for (const int ahead : kDaysAhead) {
        const DayNotice which{now.date().addDays(ahead), ahead};
        if (!settings.daysAhead.contains(ahead) || told.Contains(which)) {
            continue;
        }
        if (const QStringList names = ToldNames(namesOf(which.day)); !names.isEmpty()) {
            due.append({which, names});
        }
    }
    return due;
}

qint64 UntilNextNotices(const NoticeSettings& settings, const QDateTime& now) {
    const qint64 until = now.time().msecsTo(TimeOfNotices(settings));
    return until > 0 ? until : until + kDay;
}

}  // namespace tickwell::days
