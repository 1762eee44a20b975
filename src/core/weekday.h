// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>

namespace tickwell {

/// 1 (Sunday) .. 7 (Saturday). `day` is valid.
inline int WeekdayOf(QDate day) {
    return day.dayOfWeek() % 7 + 1;  // Qt counts from Monday
}

}  // namespace tickwell
