// SPDX-License-Identifier: GPL-3.0-or-later
#include "remote/command_calls.h"

#include <algorithm>
#include <array>

#include "core/errors.h"
#include "core/one_line.h"
#include "remote/refusal.h"

namespace tickwell::remote {

using namespace Qt::StringLiterals;

struct CommandCalls::Method {
    QStringView name;
    std::array<int, 2> types{};  ///< of the arguments; unused ones are QMetaType::UnknownType
    QStringView form;
    QVariantList (CommandCalls::*run)(const QVariantList& arguments) = nullptr;
};

namespace {

bool HaveTypes(const QVariantList& arguments, const std::array<int, 2>& types) {
    const auto expected =
        std::count_if(types.begin(), types.end(), [](int type) { return type != QMetaType::UnknownType; });
    return arguments.size() == expected &&
           std::equal(arguments.begin(), arguments.end(), types.begin(),
                      [](const QVariant& argument, int type) { return argument.typeId() == type; });
}

}  // namespace

const CommandCalls::Method& CommandCalls::MethodOf(const QString& name) {
    static constexpr std::array kMethods{
        Method{u"Show", {QMetaType::QString}, u"Show(s function)", &CommandCalls::Show},
        Method{u"Stopwatch", {QMetaType::QString}, u"Stopwatch(s action) -> i", &CommandCalls::Stopwatch},
        Method{u"Timer",
               {QMetaType::Int, QMetaType::QString},
               u"Timer(i milliseconds, s name) -> u",
               &CommandCalls::Timer},
        Method{u"Today", {}, u"Today() -> as", &CommandCalls::Today},
        Method{u"ComeForward", {QMetaType::Bool}, u"ComeForward(b menu)", &CommandCalls::ComeForward},
    };
    const auto* found = std::find_if(kMethods.begin(), kMethods.end(),
                                     [&name](const Method& method) { return name == method.name; });
    if (found == kMethods.end()) {
        throw RefusedCall(Refusal::UnknownMethod,
                          u"The methods are Show, Stopwatch, Timer, Today and ComeForward."_s);
    }
    return *found;
}

QVariantList CommandCalls::Run(const QString& method, const QVariantList& arguments) {
    if (!m_allowance.Take()) {
        throw RefusedCall(Refusal::TooManyCalls);
    }
    const Method& asked = MethodOf(method);
    if (!HaveTypes(arguments, asked.types)) {
        throw RefusedCall(Refusal::WrongArguments, u"The method is "_s + asked.form + u'.');
    }
    try {
        return (this->*asked.run)(arguments);
    } catch (const RunTimeError& error) {
        throw RefusedCall(Refusal::Failed, OnOneLine(error.Detail()));
    }
}

QVariantList CommandCalls::Show(const QVariantList& arguments) {
    const auto function = FunctionOf(arguments.at(0).toString());
    if (!function) {
        throw RefusedCall(Refusal::WrongArguments, u"The functions are "_s + FunctionNames() + u'.');
    }
    m_target.Show(*function);
    return {};
}

QVariantList CommandCalls::Stopwatch(const QVariantList& arguments) {
    const auto action = StopwatchActionOf(arguments.at(0).toString());
    if (!action) {
        throw RefusedCall(Refusal::WrongArguments, u"The actions are "_s + StopwatchActionNames() + u'.');
    }
    return {m_target.RunStopwatch(*action)};
}

QVariantList CommandCalls::Timer(const QVariantList& arguments) {
    const qint32 milliseconds = arguments.at(0).toInt();
    const QString name = arguments.at(1).toString();
    if (!IsTimerDuration(milliseconds)) {
        throw RefusedCall(Refusal::WrongArguments,
                          u"The time is %1 to %2 milliseconds."_s.arg(kShortestTimer).arg(kLongestTimer));
    }
    if (!IsTimerName(name)) {
        throw RefusedCall(Refusal::WrongArguments, u"The name has "_s + AllowedTimerNames() + u'.');
    }
    return {m_target.StartTimer(milliseconds, name)};
}

QVariantList CommandCalls::Today(const QVariantList& /*arguments*/) {
    return {m_target.Today()};  // one value, which is a list
}

QVariantList CommandCalls::ComeForward(const QVariantList& arguments) {
    m_target.ComeForward(arguments.at(0).toBool());
    return {};
}

}  // namespace tickwell::remote
