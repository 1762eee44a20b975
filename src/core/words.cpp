// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/words.h"

#include <array>
#include <cstdlib>

#include "core/integers.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

template <std::size_t n>
using Words = std::array<QStringView, n>;

constexpr Words<9> kThousands{u"千", u"二千", u"三千", u"四千", u"五千", u"六千", u"七千", u"八千", u"九千"};
constexpr Words<9> kHundreds{u"百", u"二百", u"三百", u"四百", u"五百", u"六百", u"七百", u"八百", u"九百"};
constexpr Words<9> kTens{u"十", u"二十", u"三十", u"四十", u"五十", u"六十", u"七十", u"八十", u"九十"};
constexpr Words<9> kUnits{u"一", u"二", u"三", u"四", u"五", u"六", u"七", u"八", u"九"};

constexpr Words<12> kBranches{u"子", u"丑", u"寅", u"卯", u"辰", u"巳",
                              u"午", u"未", u"申", u"酉", u"戌", u"亥"};
constexpr Words<4> kQuarters{u"一刻", u"二刻", u"三刻", u"四刻"};

// Indexed by the western year modulo 12: a year divisible by 12 is a year of the monkey.
constexpr Words<12> kAnimals{u"申年", u"酉年", u"戌年", u"亥年", u"子年", u"丑年",
                             u"寅年", u"卯年", u"辰年", u"巳年", u"午年", u"未年"};

constexpr Words<12> kTraditionalMonths{u"睦月", u"如月", u"弥生", u"卯月",   u"皐月", u"水無月",
                                       u"文月", u"葉月", u"長月", u"神無月", u"霜月", u"師走"};
constexpr Words<12> kEnglishMonths{u"January",   u"February", u"March",    u"April",
                                   u"May",       u"June",     u"July",     u"August",
                                   u"September", u"October",  u"November", u"December"};
constexpr Words<7> kEnglishWeekdays{u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                    u"Thursday", u"Friday", u"Saturday"};
constexpr Words<7> kWeekdayLetters{u"日", u"月", u"火", u"水", u"木", u"金", u"土"};

/// Entry `index` of a table that counts from 1; empty outside.
template <std::size_t n>
QStringView Entry(const Words<n>& words, int index) {
    return index >= 1 && index <= static_cast<int>(n) ? words[static_cast<std::size_t>(index - 1)]
                                                      : QStringView();
}

int LastDigit(qint32 n) {
    return QString::number(n).back().digitValue();
}

}  // namespace

QString KanjiNumber(qint32 n) {
    QString text;
    text += Entry(kThousands, n / 1000);
    text += Entry(kHundreds, LastDigit(n / 100));
    text += Entry(kTens, LastDigit(n / 10));
    text += Entry(kUnits, LastDigit(n));
    return text.isEmpty() ? u"零"_s : text;
}

QString BranchHour(int hour, int minute) {
    const std::div_t branch = std::div(hour + 1, 2);  // a branch starts at the odd hour
    const int quarter = branch.rem * 2 + minute / 30;
    return kBranches.at(static_cast<std::size_t>(branch.quot) % kBranches.size()) + u"の" +
           kQuarters.at(static_cast<std::size_t>(quarter));
}

QString YearAnimal(int year) {
    return kAnimals.at(static_cast<std::size_t>(FloorMod(year, 12))).toString();
}

QString TraditionalMonth(int month) {
    return Entry(kTraditionalMonths, month).toString();
}

QString EnglishMonth(int month) {
    return Entry(kEnglishMonths, month).toString();
}

QString EnglishWeekday(int weekday) {
    return Entry(kEnglishWeekdays, weekday).toString();
}

QString KanjiDay(int day) {
    return Entry(kTens, day / 10) + Entry(kUnits, day % 10) + u"日";
}

QString WeekdayLetter(qint32 a, qint32 b) {
    const qint64 difference = qint64{a} - b;
    if (difference < -9 || difference > 15) {
        return QString();
    }
    return kWeekdayLetters.at(static_cast<std::size_t>(FloorMod(difference, 7))).toString();
}

}  // namespace tickwell
