// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/clock_text.h"

#include <optional>

#include "core/duration_text.h"
#include "core/weekday.h"
#include "core/words.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 kTwelveHours = 0;
constexpr qint32 kStandard = 0;
constexpr qint32 kEnglishShort = 1;
constexpr qint32 kEraOrName = 0;

struct DayNames {
    QStringView morning;
    QStringView afternoon;
};

/// "午後9" for 21:00: the word, then the hour 0 to 11, without a space.
QString TwelveHourText(int hour, const DayNames& names) {
    return hour < 12 ? names.morning + QString::number(hour) : names.afternoon + QString::number(hour - 12);
}

QString ColonText(const QString& hour, QTime now) {
    return hour + u':' + TwoDigits(now.minute()) + u':' + TwoDigits(now.second());
}

QString JapaneseClock(QTime now, qint32 displayMode, qint32 hourStyle) {
    const QString hour = hourStyle == kTwelveHours ? TwelveHourText(now.hour(), {u"午前", u"午後"})
                                                   : QString::number(now.hour());
    if (displayMode != kStandard) {
        return ColonText(hour, now);
    }
    return hour + u"時" + TwoDigits(now.minute()) + u"分" + TwoDigits(now.second()) + u"秒";
}

QString EnglishClock(QTime now, qint32 hourStyle) {
    return ColonText(
        hourStyle == kTwelveHours ? TwelveHourText(now.hour(), {u"AM", u"PM"}) : QString::number(now.hour()),
        now);
}

QString JapaneseDate(QDate day, const std::optional<EraYear>& era, qint32 displayMode) {
    const QString month = QString::number(day.month());
    const QString number = QString::number(day.day());
    const QString letter = WeekdayLetter(WeekdayOf(day), 1);
    if (displayMode != kStandard) {
        const QString year = era ? era->letter + QString::number(era->year) : QString::number(day.year());
        return year + u'/' + month + u'/' + number + u'(' + letter + u')';
    }
    const QString year = era ? era->name + era->YearText() : QString::number(day.year());
    return year + u"年" + month + u"月" + number + u"日(" + letter + u"曜日)";
}

QString EnglishDate(QDate day, qint32 yearStyle, qint32 displayMode) {
    const auto name = [&](const QString& full) {
        return displayMode == kEnglishShort ? full.first(3) + u'.' : full;
    };
    const QString year = QString::number(day.year());
    const QString number = QString::number(day.day());
    const QString weekday = name(EnglishWeekday(WeekdayOf(day)));
    if (yearStyle == kEraOrName) {
        return name(EnglishMonth(day.month())) + u' ' + number + u',' + year + u' ' + weekday;
    }
    return QString::number(day.month()) + u'/' + number + u'/' + year + u' ' + weekday;
}

QString OldJapaneseDate(QDate day) {
    return YearAnimal(day.year()) + u' ' + TraditionalMonth(day.month()) + u' ' + KanjiDay(day.day());
}

}  // namespace

QString ClockText(QTime now, qint32 language, qint32 displayMode, qint32 hourStyle) {
    switch (language) {
        case kLanguageJapanese:
            return JapaneseClock(now, displayMode, hourStyle);
        case kLanguageEnglish:
            return EnglishClock(now, hourStyle);
        case kLanguageOldJapanese:
            return BranchHour(now.hour(), now.minute());
        default:
            return QString();
    }
}

QString DateText(QDate today, qint32 language, qint32 yearStyle, qint32 displayMode, const EraStyle& eras) {
    switch (language) {
        case kLanguageJapanese:
            return JapaneseDate(today, yearStyle == kEraOrName ? EraYearOf(today, eras) : std::nullopt,
                                displayMode);
        case kLanguageEnglish:
            return EnglishDate(today, yearStyle, displayMode);
        case kLanguageOldJapanese:
            return OldJapaneseDate(today);
        default:
            return QString();
    }
}

}  // namespace tickwell
