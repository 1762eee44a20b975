// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/old_calendar.h"

#include "core/duration_text.h"
#include "core/old_calendar_table.h"
#include "core/words.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

// Indexed by month + day modulo 6.
constexpr int kCycle = 6;
constexpr char16_t kRokuyo[kCycle][3]{u"大安", u"赤口", u"先勝", u"友引", u"先負", u"仏滅"};

quint32 BitsOf(int oldYear) {
    const int index = oldYear - (kFirstTableYear - 1);
    return kOldYears.at(static_cast<std::size_t>(index));
}

QDate FirstDayOf(int oldYear) {
    return QDate(oldYear, 1, 20).addDays(BitsOf(oldYear) & 0x1F);
}

/// `index` counts the months of the old year from 0, its leap month included.
int LengthOfMonth(quint32 bits, int index) {
    return (bits >> (9 + index) & 1) != 0 ? 30 : 29;
}

/// `mark` in a leap month, otherwise empty.
QString InLeapMonth(const OldDate& date, const QString& mark) {
    return date.isLeap ? mark : QString();
}

}  // namespace

std::optional<OldDate> OldDateOf(QDate day) {
    if (!IsInTable(day)) {
        return std::nullopt;
    }
    const int year = day < FirstDayOf(day.year()) ? day.year() - 1 : day.year();
    const quint32 bits = BitsOf(year);
    auto left = static_cast<int>(FirstDayOf(year).daysTo(day));
    int index = 0;
    while (left >= LengthOfMonth(bits, index)) {
        left -= LengthOfMonth(bits, index);
        ++index;
    }
    const auto leap = static_cast<int>(bits >> 5 & 0xF);
    const bool countedOn = leap == 0 || index < leap;  // from the leap month on, numbers lag by one
    return OldDate{year, countedOn ? index + 1 : index, leap != 0 && index == leap, left + 1};
}

QString RokuyoName(const OldDate& date) {
    return QString::fromUtf16(kRokuyo[(date.month + date.day) % kCycle]);
}

QString OldDateText(const OldDate& date) {
    return u"旧暦%1%2月%3日"_s.arg(InLeapMonth(date, u"閏"_s)).arg(date.month).arg(date.day);
}

QString OldJapaneseDateText(const OldDate& date) {
    return u"%1 %2%3 %4"_s.arg(YearAnimal(date.year), InLeapMonth(date, u"閏"_s),
                               TraditionalMonth(date.month), KanjiDay(date.day));
}

QString OldDateIso(const OldDate& date) {
    return u"%1-%2%3-%4"_s.arg(QString::number(date.year), TwoDigits(date.month), InLeapMonth(date, u"+"_s),
                               TwoDigits(date.day));
}

}  // namespace tickwell
