// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>

#include "timing/alarm_list.h"

namespace tickwell::timing {

/// The days of an alarm: 「毎日」, 「平日」, 「月・水・金」, 「11/24(火)」; with 「（休みの日を除く）」 if it
/// is silent on days off.
QString AlarmDaysText(const KeptAlarm& alarm, QDate today);

/// When an alarm rings: 「今日 7:00」, 「明日 7:00」, 「11/24(火) 7:00」, in another year 「2027/1/4(月)
/// 7:00」. Both are local.
QString RingText(const QDateTime& ring, QDate today);

/// The line of the notice: 「「起床」の時刻です（7:00）」, or, if it is too late to ring,
/// 「「起床」は25分前（7:00）に鳴るはずでした」. `at`: call.at as local time.
QString CallText(const AlarmCall& call, const QDateTime& at, QDate today);

/// 「10分後にもう一度」 if all alarms have the same minutes, which there is at least one of.
QString SnoozeText(const QList<int>& minutes);

}  // namespace tickwell::timing
