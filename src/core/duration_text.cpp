// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/duration_text.h"

#include "core/integers.h"
#include "core/language.h"
#include "core/words.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 kDay = 86'400'000;  // ms
constexpr qint32 kHour = 3'600'000;  // ms
constexpr qint32 kMinute = 60'000;   // ms
constexpr qint32 kSecond = 1000;     // ms

/// The sign, then `width` digits or more.
QString Padded(qint32 value, int width) {
    const QString digits = QString::number(value < 0 ? -qint64{value} : qint64{value});
    return (value < 0 ? u"-"_s : QString()) + digits.rightJustified(width, u'0');
}

}  // namespace

qint32 WholeSeconds(qint32 milliseconds) {
    return static_cast<qint32>(RoundHalfEven(milliseconds, kSecond));  // |result| <= 2147484
}

QString UsageText(qint64 milliseconds, qint32 language, qint32 displayMode, qint32 /*hourStyle*/) {
    const qint64 seconds = RoundHalfEven(milliseconds, kSecond);
    const auto h = static_cast<qint32>(seconds / 3600);  // fits for 245 000 years
    const auto m = static_cast<qint32>(seconds % 3600 / 60);
    const auto s = static_cast<qint32>(seconds % 60);
    if (language == kLanguageOldJapanese) {
        const QString hours = h > 0 ? KanjiNumber(h) + u"時間" : QString();
        return hours + KanjiNumber(m) + u"分" + KanjiNumber(s) + u"秒";
    }
    if (language == kLanguageJapanese && displayMode == 0) {
        const QString hours = h > 0 ? QString::number(h) + u"時間" : QString();
        return hours + TwoDigits(m) + u"分" + TwoDigits(s) + u"秒";
    }
    return QString::number(h) + u':' + TwoDigits(m) + u':' + TwoDigits(s);
}

QString ElapsedText(qint32 milliseconds) {
    const qint32 ms = milliseconds < 0 ? milliseconds + kDay : milliseconds;
    return QString::number(ms / kHour) + u':' + TwoDigits(ms % kHour / kMinute) + u'\'' +
           TwoDigits(ms % kMinute / kSecond) + u'"' + Padded(ms % kSecond, 3);
}

QString MinSecText(qint32& milliseconds) {
    milliseconds = WholeSeconds(milliseconds);
    return QString::number(milliseconds / 60) + u':' + TwoDigits(milliseconds % 60);
}

QString TwoDigits(qint32 value) {
    return Padded(value, 2);
}

}  // namespace tickwell
