// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/day_notice_text.h"

#include <algorithm>

#include "core/one_line.h"
#include "core/weekday.h"
#include "core/words.h"

namespace tickwell::days {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kMostInSummary = 3;
constexpr qsizetype kYearDigits = 4;
// Characters. Another program may have stored a name of any length, and a bus takes messages of a limited
// size.
constexpr qsizetype kLongestName = 200;

QString AheadText(int ahead) {
    switch (ahead) {
        case 0:
            return u"今日"_s;
        case 1:
            return u"明日"_s;
        default:
            return QString::number(ahead) + u"日後";
    }
}

/// 「明日 12月23日(水)」
QString DayText(const DayNotice& notice) {
    return AheadText(notice.ahead) + u' ' + QString::number(notice.day.month()) + u'月' +
           QString::number(notice.day.day()) + u"日(" + WeekdayLetter(WeekdayOf(notice.day), 1) + u')';
}

bool IsDigit(QChar each) {
    return (each >= u'0' && each <= u'9') || (each >= u'０' && each <= u'９');
}

QString Shortened(const QString& name) {
    if (name.size() <= kLongestName) {
        return name;
    }
    const qsizetype end = kLongestName - 1;
    return name.left(name.at(end - 1).isHighSurrogate() ? end - 1 : end) + u'…';
}

QString AnniversaryText(int years) {
    return u'（' + QString::number(years) + u"周年）";
}

QString WithYears(const CountedName& counted) {
    return counted.years > 0 ? counted.name + AnniversaryText(counted.years) : counted.name;
}

}  // namespace

CountedName CountYears(const QString& name, int yearOfDay) {
    const QString whole = name.trimmed();
    const qsizetype open = whole.size() - kYearDigits - 2;
    if (open < 1 || !QStringView(u")）").contains(whole.back()) ||
        !QStringView(u"(（").contains(whole.at(open))) {
        return {name};
    }
    const QString digits = whole.mid(open + 1, kYearDigits);
    if (!std::all_of(digits.begin(), digits.end(), IsDigit)) {
        return {name};
    }
    int year = 0;
    for (const QChar digit : digits) {
        year = year * 10 + digit.digitValue();
    }
    const QString rest = whole.left(open).trimmed();
    if (year < 1 || year >= yearOfDay || rest.isEmpty()) {
        return {name};
    }
    return {rest, yearOfDay - year};
}

NoticeText DayNoticeText(const DayNotice& notice, const QStringList& names, bool counts) {
    QList<CountedName> counted;
    for (const QString& name : names) {
        const QString line = OnOneLine(name);
        counted.append(counts ? CountYears(line, notice.day.year()) : CountedName{line});
        counted.back().name = Shortened(counted.back().name);
    }
    if (counted.size() == 1) {
        const CountedName& only = counted.constFirst();
        const QString years = only.years > 0 ? AnniversaryText(only.years) : QString();
        return {DayText(notice) + u"は「" + only.name + u"」です" + years, {}};
    }
    NoticeText text{DayText(notice) + u'は', {}};
    QStringList all;
    for (const CountedName& each : counted) {
        all.append(WithYears(each));
    }
    for (const QString& name : all.mid(0, kMostInSummary)) {
        text.summary += u'「' + name + u'」';
    }
    if (all.size() > kMostInSummary) {
        text.summary += u"ほか" + QString::number(all.size() - kMostInSummary) + u'件';
        text.body = all.join(u'\n');
    }
    text.summary += u"です";
    return text;
}

}  // namespace tickwell::days
