// SPDX-License-Identifier: GPL-3.0-or-later
#include "remote/vocabulary.h"

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>
#include <array>

#include "core/display_function.h"
#include "core/one_line.h"

namespace tickwell::remote {

using namespace Qt::StringLiterals;

namespace {

struct NamedFunction {
    QStringView name;
    qint32 number = 0;
};

constexpr std::array kFunctions{
    NamedFunction{u"clock", kFunctionClock},
    NamedFunction{u"usage", kFunctionUsage},
    NamedFunction{u"stopwatch", kFunctionStopwatch},
    NamedFunction{u"timer", kFunctionTimer},
    NamedFunction{u"battery", kFunctionBattery},
    NamedFunction{u"memory", kFunctionMemory},
    NamedFunction{u"cd", kFunctionCd},
};

struct NamedAction {
    QStringView name;
    StopwatchAction action{};
};

constexpr std::array kActions{
    NamedAction{u"start", StopwatchAction::Start}, NamedAction{u"stop", StopwatchAction::Stop},
    NamedAction{u"lap", StopwatchAction::Lap},     NamedAction{u"reset", StopwatchAction::Reset},
    NamedAction{u"read", StopwatchAction::Read},
};

// ms
constexpr qint64 kHour = 3'600'000;
constexpr qint64 kMinute = 60'000;
constexpr qint64 kSecond = 1000;

}  // namespace

std::optional<qint32> FunctionOf(const QString& text) {
    const auto found = std::find_if(kFunctions.begin(), kFunctions.end(), [&text](const NamedFunction& each) {
        return text == each.name || text == QString::number(each.number);
    });
    return found == kFunctions.end() ? std::nullopt : std::optional(found->number);
}

QString FunctionNames() {
    QStringList names;
    for (const NamedFunction& each : kFunctions) {
        names.append(u"%1 (%2)"_s.arg(each.name).arg(each.number));
    }
    return names.join(u", "_s);
}

std::optional<StopwatchAction> StopwatchActionOf(const QString& text) {
    const auto found = std::find_if(kActions.begin(), kActions.end(),
                                    [&text](const NamedAction& each) { return text == each.name; });
    return found == kActions.end() ? std::nullopt : std::optional(found->action);
}

QString StopwatchActionNames() {
    QStringList names;
    for (const NamedAction& each : kActions) {
        names.append(each.name.toString());
    }
    return names.join(u", "_s);
}

std::optional<qint32> DurationOf(const QString& text) {
    // Five digits are enough for the longest time in seconds; more could overflow.
    static const QRegularExpression kForm(
        u"\\A(?=[0-9])(?:([0-9]{1,5})h)?(?:([0-9]{1,5})m)?(?:([0-9]{1,5})s)?\\z"_s);
    const QRegularExpressionMatch match = kForm.match(text);
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    const auto number = [&match](int group) { return match.captured(group).toLongLong(); };  // 0 if absent
    const qint64 sum = number(1) * kHour + number(2) * kMinute + number(3) * kSecond;
    return IsTimerDuration(sum) ? std::optional(static_cast<qint32>(sum)) : std::nullopt;
}

bool IsTimerName(const QString& name) {
    // Checked in this order, so that a text of megabytes is not scanned.
    return name.size() <= qsizetype{2} * kLongestTimerName && name.toUcs4().size() <= kLongestTimerName &&
           OnOneLine(name) == name;
}

QString AllowedDurations() {
    return u"1 second to 23 hours 59 minutes 59 seconds"_s;
}

QString AllowedTimerNames() {
    return u"at most %1 characters without control characters"_s.arg(kLongestTimerName);
}

}  // namespace tickwell::remote
