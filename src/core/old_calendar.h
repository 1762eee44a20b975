// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QString>
#include <optional>

namespace tickwell {

/// A day of the old calendar (旧暦) of Japan, whose months begin on the day of the new moon.
struct OldDate {
    int year;     ///< the western year in which this old year's first month begins: 2025 for 1 February 2026
    int month;    ///< 1..12
    bool isLeap;  ///< in the leap month that follows `month`
    int day;      ///< 1..30

    bool operator==(const OldDate&) const = default;
};

/// nullopt outside 1900-01-01 to 2100-12-31.
std::optional<OldDate> OldDateOf(QDate day);

/// "大安": the day in the six-day cycle, which restarts with each month. A leap month starts it like the
/// month of the same number.
QString RokuyoName(const OldDate& date);

/// "旧暦10月14日"; in a leap month "旧暦閏6月1日".
QString OldDateText(const OldDate& date);

/// "午年 神無月 十四日"; in a leap month "巳年 閏水無月 一日".
QString OldJapaneseDateText(const OldDate& date);

/// "2026-03-20"; in a leap month "2025-06+-01".
QString OldDateIso(const OldDate& date);

}  // namespace tickwell
