// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/alarm_texts.h"

#include <algorithm>

#include "timing/timer_texts.h"

namespace tickwell::timing {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kWeekdayLetters = u"月火水木金土日";
constexpr qint64 kCallMinute = 60'000;  // ms

QString DateText(QDate day, QDate today) {
    const QString year = day.year() == today.year() ? QString() : QString::number(day.year()) + u'/';
    return year + QString::number(day.month()) + u'/' + QString::number(day.day()) + u'(' +
           kWeekdayLetters[day.dayOfWeek() - 1] + u')';
}

QString ChosenText(int weekdays) {
    QStringList letters;
    for (qsizetype i = 0; i < kWeekdayLetters.size(); ++i) {
        if (((weekdays >> i) & 1) != 0) {
            letters.append(QString(kWeekdayLetters[i]));
        }
    }
    return letters.join(u"・"_s);
}

QString PlainDaysText(const KeptAlarm& alarm, QDate today) {
    switch (alarm.days) {
        case AlarmDays::Every:
            return u"毎日"_s;
        case AlarmDays::Workdays:
            return u"平日"_s;
        case AlarmDays::Chosen:
            return ChosenText(alarm.weekdays);
        case AlarmDays::Once:
            break;
    }
    return DateText(alarm.once, today);
}

}  // namespace

QString AlarmDaysText(const KeptAlarm& alarm, QDate today) {
    return PlainDaysText(alarm, today) + (alarm.silentOnDaysOff ? u"（休みの日を除く）"_s : QString());
}

QString RingText(const QDateTime& ring, QDate today) {
    const qint64 days = today.daysTo(ring.date());
    QString day = days == 1 ? u"明日"_s : DateText(ring.date(), today);
    if (days == 0) {
        day = u"今日"_s;
    }
    return day + u' ' + ring.toString(u"H:mm"_s);
}

QString CallText(const AlarmCall& call, const QDateTime& at, QDate today) {
    const QString day = at.date() == today ? QString() : DateText(at.date(), today) + u' ';
    const QString time = u"（"_s + day + at.toString(u"H:mm"_s) + u"）";
    if (call.rings) {
        return u"「"_s + call.name + u"」の時刻です" + time;
    }
    return u"「"_s + call.name + u"」は" + LengthText(call.ago - call.ago % kCallMinute) + u"前" + time +
           u"に鳴るはずでした";
}

QString SnoozeText(const QList<int>& minutes) {
    const bool isSame = std::all_of(minutes.begin(), minutes.end(),
                                    [&minutes](int other) { return other == minutes.front(); });
    return isSame ? QString::number(minutes.front()) + u"分後にもう一度" : u"あとでもう一度"_s;
}

}  // namespace tickwell::timing
