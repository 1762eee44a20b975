// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QString>
#include <QTime>

namespace tickwell {

/// The most alarms of the list.
inline constexpr int kMostAlarms = 50;

/// How long an alarm can ring, in seconds.
inline constexpr int kShortestRing = 5;
inline constexpr int kLongestRing = 600;

/// After how many minutes it can ring again.
inline constexpr int kLongestSnooze = 30;

enum class AlarmDays { Every, Workdays, Chosen, Once };

/// An alarm as it is stored.
struct KeptAlarm {
    qint64 id = 0;  ///< 0: not stored yet
    QString name{};
    QTime time{};  ///< local, whole minutes
    AlarmDays days = AlarmDays::Every;
    int weekdays = 0;              ///< of AlarmDays::Chosen: bit 0 is Monday, bit 6 Sunday
    QDate once{};                  ///< of AlarmDays::Once
    bool silentOnDaysOff = false;  ///< 「休みの日は鳴らさない」
    QDate skipped{};               ///< the day of 「次の1回だけ鳴らさない」; null for none
    bool isOn = true;
    QString sound{};        ///< a file of the program's folder, or the absolute path of a wave file
    int ringSeconds = 0;    ///< how long it rings: kShortestRing to kLongestRing
    int snoozeMinutes = 0;  ///< 1 to kLongestSnooze
    qint64 handled = 0;     ///< ms since 1970 in UTC: up to here everything was rung, told or skipped
    qint64 againAt = 0;     ///< ms since 1970 in UTC, when the snooze ends; 0: none

    bool operator==(const KeptAlarm&) const = default;
};

}  // namespace tickwell
