// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QList>
#include <QStringList>
#include <array>
#include <functional>

#include "core/notice_settings.h"
#include "days/told_notices.h"

namespace tickwell::days {

/// The numbers of days that a notice can come before its day.
inline constexpr std::array kDaysAhead{0, 1, 3, 7};

/// A notice that is due.
struct DueNotice {
    DayNotice which;
    QStringList names;  ///< of its day; at least one, none of them blank, each once
};

/// The names of a day. May throw.
using NamesOfDay = std::function<QStringList(QDate day)>;

/// The notices that are due at `now`, the nearest day first: for each of the chosen numbers of days the
/// notice of the day that is so far ahead, from the chosen time until midnight, unless that day has no names
/// or the notice was told before. `namesOf` is only called for days whose notice was not told. Throws what it
/// throws.
QList<DueNotice> DueNotices(const NoticeSettings& settings, const QDateTime& now, const NamesOfDay& namesOf,
                            const ToldNotices& told);

/// Whether notices of this day are already told at `now`, or have to wait for the chosen time.
bool IsTimeOfNotices(const NoticeSettings& settings, const QDateTime& now);

/// Milliseconds from `now` to the next time at which notices become due, as a clock on the wall counts them;
/// above 0. Finding out whether summer time begins or ends until then takes 84 µs in Qt 6.8, and callers ask
/// every minute.
qint64 UntilNextNotices(const NoticeSettings& settings, const QDateTime& now);

}  // namespace tickwell::days
