// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/era.h"

#include <QStringList>
#include <array>

#include "core/errors.h"
#include "core/words.h"
#include "core/year_month_day.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

struct KnownEra {
    QStringView name;
    QStringView letter;
    int yearOne = 0;  // the Gregorian year of its year 1
    int year = 0;     // its first day
    int month = 0;
    int day = 0;
};

// Latest first. 明治 began in 1868, but the first day that had a Gregorian date is 1873-01-01, of its year 6.
constexpr std::array kEras{
    KnownEra{u"令和", u"令", 2019, 2019, 5, 1},   KnownEra{u"平成", u"平", 1989, 1989, 1, 8},
    KnownEra{u"昭和", u"昭", 1926, 1926, 12, 25}, KnownEra{u"大正", u"大", 1912, 1912, 7, 30},
    KnownEra{u"明治", u"明", 1868, 1873, 1, 1},
};

constexpr qsizetype kLongestEraName = 8;

QDate FirstDayOf(const KnownEra& era) {
    return {era.year, era.month, era.day};
}

}  // namespace

std::optional<EraYear> EraYearOf(QDate date, const EraStyle& style) {
    if (!style.byDate) {
        return EraYear{u"平成"_s, u"平"_s, HeiseiYear(date.year()), false};
    }
    if (style.next && date >= style.next->first) {
        return EraYear{style.next->name, style.next->letter, date.year() - style.next->first.year() + 1,
                       true};
    }
    for (const KnownEra& era : kEras) {
        if (date >= FirstDayOf(era)) {
            return EraYear{era.name.toString(), era.letter.toString(), date.year() - era.yearOne + 1, true};
        }
    }
    return std::nullopt;
}

Era ReadEra(const QString& text) {
    const QStringList parts = text.split(u',');
    const QDate first = QDate::fromString(parts.value(2).trimmed(), Qt::ISODate);
    Era era{parts.value(0).trimmed(), parts.value(1).trimmed(), first};
    const auto isName = [](const QString& name) { return !name.isEmpty() && name.size() <= kLongestEraName; };
    if (parts.size() != 3 || !isName(era.name) || !isName(era.letter) || !first.isValid()) {
        throw RunTimeError(u"「元号,略字,2040-05-01」の形ではありません。"_s);
    }
    if (first <= FirstDayOf(kEras.front())) {
        throw RunTimeError(YearMonthDay(first) + u"は、令和の最初の日（2019年5月1日）より後ではありません。");
    }
    return era;
}

QString EraText(const Era& era) {
    return era.name + u',' + era.letter + u',' + era.first.toString(Qt::ISODate);
}

}  // namespace tickwell
