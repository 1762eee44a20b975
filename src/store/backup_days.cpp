// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/backup_days.h"

#include <QSet>
#include <algorithm>

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kNameStart = "DayDate-"_L1;
constexpr auto kNameEnd = ".mdb"_L1;

QDate MondayOf(QDate day) {
    return day.addDays(1 - day.dayOfWeek());
}

}  // namespace

QString BackupName(QDate day) {
    return kNameStart + day.toString(Qt::ISODate) + kNameEnd;
}

std::optional<QDate> DayOfBackup(const QString& name) {
    if (!name.startsWith(kNameStart) || !name.endsWith(kNameEnd)) {
        return std::nullopt;
    }
    const QString text = name.sliced(kNameStart.size()).chopped(kNameEnd.size());
    const QDate day = QDate::fromString(text, Qt::ISODate);
    return day.isValid() && BackupName(day) == name ? std::optional(day) : std::nullopt;
}

QList<QDate> SurplusBackups(QList<QDate> days, QDate made) {
    std::sort(days.begin(), days.end(), std::greater<>());
    QList<QDate> surplus;
    QSet<QDate> weeks;
    int kept = 0;
    for (const QDate day : std::as_const(days)) {
        if (day > made) {
            continue;
        }
        const bool isNewestOfWeek = !weeks.contains(MondayOf(day)) && weeks.size() < kBackupWeeks;
        if (isNewestOfWeek) {
            weeks.insert(MondayOf(day));
        }
        ++kept;
        if (kept > kBackupDays && !isNewestOfWeek) {
            surplus.append(day);
        }
    }
    return surplus;
}

}  // namespace tickwell::store
