// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/alarm_rows.h"

#include "core/minute_of_day.h"
#include "store/tools_rows.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAllWeekdays = 127;

int SmallInteger(const SqliteStatement& row, int column, int least, int most) {
    const qint64 value = row.Integer(column);
    RequireTools(value >= least && value <= most);
    return static_cast<int>(value);
}

QDate DayOrNone(const QString& text) {
    const QDate day = QDate::fromString(text, Qt::ISODate);
    RequireTools(text.isEmpty() || (day.isValid() && day.toString(Qt::ISODate) == text));
    return day;
}

qint64 StoredMoment(const SqliteStatement& row, int column) {
    RequireTools(IsToolsMoment(row.Integer(column)));
    return row.Integer(column);
}

KeptAlarm AlarmOf(const SqliteStatement& row) {
    const int minute = SmallInteger(row, 2, 0, kLastMinute);
    KeptAlarm alarm{
        .id = row.Integer(0),
        .name = row.Text(1),
        .time = QTime(minute / kMinutesInHour, minute % kMinutesInHour),
        .days = static_cast<AlarmDays>(SmallInteger(row, 3, 0, static_cast<int>(AlarmDays::Once))),
        .weekdays = SmallInteger(row, 4, 0, kAllWeekdays),
        .once = DayOrNone(row.Text(5)),
        .silentOnDaysOff = SmallInteger(row, 6, 0, 1) != 0,
        .skipped = DayOrNone(row.Text(7)),
        .isOn = SmallInteger(row, 8, 0, 1) != 0,
        .sound = row.Text(9),
        .ringSeconds = SmallInteger(row, 10, kShortestRing, kLongestRing),
        .snoozeMinutes = SmallInteger(row, 11, 1, kLongestSnooze),
        .handled = StoredMoment(row, 12),
        .againAt = StoredMoment(row, 13)};
    RequireTools((alarm.days == AlarmDays::Once) == alarm.once.isValid());
    return alarm;
}

void BindAlarm(SqliteStatement& statement, const KeptAlarm& alarm) {
    statement.Bind(1, alarm.id);
    statement.Bind(2, alarm.name);
    statement.Bind(3, qint32{alarm.time.hour() * kMinutesInHour + alarm.time.minute()});
    statement.Bind(4, static_cast<qint32>(alarm.days));
    statement.Bind(5, qint32{alarm.weekdays});
    statement.Bind(6, alarm.once.toString(Qt::ISODate));
    statement.Bind(7, qint32{alarm.silentOnDaysOff ? 1 : 0});
    statement.Bind(8, alarm.skipped.toString(Qt::ISODate));
    statement.Bind(9, qint32{alarm.isOn ? 1 : 0});
    statement.Bind(10, alarm.sound);
    statement.Bind(11, qint32{alarm.ringSeconds});
    statement.Bind(12, qint32{alarm.snoozeMinutes});
    statement.Bind(13, alarm.handled);
    statement.Bind(14, alarm.againAt);
}

}  // namespace

QList<KeptAlarm> ReadAlarms(SqliteConnection& connection) {
    QList<KeptAlarm> alarms;
    ReadToolsRows(connection,
                  "SELECT id, name, minute, days, weekdays, once, silent_on_days_off, skipped, is_on, sound, "
                  "ring_seconds, snooze_minutes, handled, again_at FROM alarms ORDER BY id",
                  [&alarms](const SqliteStatement& row) { alarms.append(AlarmOf(row)); });
    return alarms;
}

void WriteAlarm(SqliteConnection& connection, KeptAlarm& alarm) {
    SqliteStatement& statement = connection.Prepared(
        "INSERT OR REPLACE INTO alarms(id, name, minute, days, weekdays, once, silent_on_days_off, skipped, "
        "is_on, sound, ring_seconds, snooze_minutes, handled, again_at) VALUES(NULLIF(?1, 0), ?2, ?3, ?4, "
        "?5, "
        "?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13, ?14)");
    const auto reset = qScopeGuard([&statement] { statement.Reset(); });
    BindAlarm(statement, alarm);
    statement.Step();
    if (alarm.id == 0) {
        alarm.id = connection.FirstValue("SELECT last_insert_rowid()").toLongLong();
    }
}

}  // namespace tickwell::store
