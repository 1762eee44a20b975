// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/timer_texts.h"

#include "core/duration_text.h"

namespace tickwell::timing {

using namespace Qt::StringLiterals;

namespace {

// ms
constexpr qint64 kTextSecond = 1000;
constexpr qint64 kTextMinute = 60 * kTextSecond;
constexpr qint64 kTextHour = 60 * kTextMinute;
constexpr qint64 kTextDay = 24 * kTextHour;

QString TimePart(qint64 count, QStringView unit) {
    QString text;
    if (count != 0) {
        text = QString::number(count) + unit.toString();
    }
    return text;
}

}  // namespace

QString RemainingText(qint64 milliseconds) {
    const qint64 seconds = (milliseconds + kTextSecond - 1) / kTextSecond;
    const qint64 hours = seconds / 3600;
    const auto minutes = static_cast<qint32>(seconds / 60 % 60);
    const QString rest = u':' + TwoDigits(static_cast<qint32>(seconds % 60));
    if (hours == 0) {
        return QString::number(minutes) + rest;
    }
    return QString::number(hours) + u':' + TwoDigits(minutes) + rest;
}

QString EndText(const QDateTime& end, QDate today) {
    return end.toString(end.date() == today ? u"H:mm:ss"_s : u"M/d H:mm:ss"_s);
}

QString LengthText(qint64 milliseconds) {
    if (milliseconds >= kTextDay) {
        return TimePart(milliseconds / kTextDay, u"日");
    }
    if (milliseconds >= kTextHour) {
        return TimePart(milliseconds / kTextHour, u"時間") +
               TimePart(milliseconds % kTextHour / kTextMinute, u"分");
    }
    if (milliseconds >= kTextMinute) {
        return TimePart(milliseconds / kTextMinute, u"分") +
               TimePart(milliseconds % kTextMinute / kTextSecond, u"秒");
    }
    return QString::number(milliseconds / kTextSecond) + u"秒";
}

QString PlanText(const TimerPlan& plan) {
    QString text = plan.name + u' ' + LengthText(plan.milliseconds);
    if (plan.IsChain()) {
        text += u'／' + plan.nextName + u' ' + LengthText(plan.nextMilliseconds);
    }
    return text;
}

QString EndedText(const QString& name, qint64 ago) {
    if (ago < kTextMinute) {
        return u"「%1」が終わりました"_s.arg(name);
    }
    return u"「"_s + name + u"」は" + LengthText(ago - ago % kTextMinute) + u"前に終わりました";
}

QString PhaseText(TimerPhase phase) {
    switch (phase) {
        case TimerPhase::Idle:
            return u"停止"_s;
        case TimerPhase::Running:
            return u"動作中"_s;
        case TimerPhase::Paused:
            return u"一時停止"_s;
        case TimerPhase::Ended:
            break;
    }
    return u"終了"_s;
}

}  // namespace tickwell::timing
