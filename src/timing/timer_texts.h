// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>

#include "core/kept_timer.h"

namespace tickwell::timing {

/// h:mm:ss, or m:ss below an hour, with a begun second counted as a whole one. `milliseconds`: 0 or more.
QString RemainingText(qint64 milliseconds);

/// The time at which a timer ends: 21:08:07, with the date if that is not today: 11/16 0:05:07.
QString EndText(const QDateTime& end, QDate today);

/// 「3分」, 「1時間5分」, 「12秒」: whole units, the smallest of them a minute from an hour on.
QString LengthText(qint64 milliseconds);

/// The caption of a preset's button: 「紅茶 4分」, 「集中 25分／休憩 5分」.
QString PlanText(const TimerPlan& plan);

/// 「「紅茶」が終わりました」; if that was a minute ago or more: 「「紅茶」は12分前に終わりました」.
QString EndedText(const QString& name, qint64 ago);

QString PhaseText(TimerPhase phase);

}  // namespace tickwell::timing
