// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/solar_terms.h"

#include "core/old_calendar_table.h"

namespace tickwell {

namespace {

/// Up to five characters and a 0. A table of such names has no pointers that need relocation at start-up.
using Name = char16_t[6];

// In the order of the solar longitudes in old_calendar_table.h.
constexpr Name kSolarNames[kSolarLongitudes]{
    u"小寒",       u"大寒",       u"立春", u"雨水",   u"啓蟄",       u"春分",      u"清明", u"穀雨",
    u"立夏",       u"小満",       u"芒種", u"夏至",   u"小暑",       u"大暑",      u"立秋", u"処暑",
    u"白露",       u"秋分",       u"寒露", u"霜降",   u"立冬",       u"小雪",      u"大雪", u"冬至",
    u"土用の入り", u"土用の入り", u"入梅", u"半夏生", u"土用の入り", u"土用の入り"};

constexpr int kStartOfSpring = 2;   // 立春
constexpr int kSpringEquinox = 5;   // 春分
constexpr int kAutumnEquinox = 17;  // 秋分

/// A day that is counted from a term.
struct CountedDay {
    int term;
    int daysLater;
    Name name;
};

constexpr CountedDay kCountedDays[]{
    {kStartOfSpring, -1, u"節分"},        {kSpringEquinox, -3, u"彼岸の入り"},
    {kStartOfSpring, 87, u"八十八夜"},    {kStartOfSpring, 209, u"二百十日"},
    {kStartOfSpring, 219, u"二百二十日"}, {kAutumnEquinox, -3, u"彼岸の入り"}};

/// The day on which the sun reaches longitude `index` of the table.
QDate SolarDay(int year, int index) {
    const DayOfYear earliest = kEarliestSolarDays.at(static_cast<std::size_t>(index));
    const quint64 later = kSolarDays.at(static_cast<std::size_t>(year - kFirstTableYear)) >> (2 * index) & 3;
    return QDate(year, earliest.month, earliest.day).addDays(static_cast<qint64>(later));
}

}  // namespace

QString SeasonName(QDate day) {
    if (!IsInTable(day)) {
        return QString();
    }
    for (int index = 0; index < kSolarLongitudes; ++index) {
        if (SolarDay(day.year(), index) == day) {
            return QString::fromUtf16(kSolarNames[index]);
        }
    }
    for (const CountedDay& counted : kCountedDays) {
        if (SolarDay(day.year(), counted.term).addDays(counted.daysLater) == day) {
            return QString::fromUtf16(counted.name);
        }
    }
    return QString();
}

}  // namespace tickwell
