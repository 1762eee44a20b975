// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/command_options.h"

#include "remote/vocabulary.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;

namespace {

ParsedCommand Wrong(const QString& error) {
    return {.command = std::nullopt, .error = error};
}

ParsedCommand Call(const QString& method, const QVariantList& arguments) {
    return {.command = CommandOption{.method = method, .arguments = arguments}, .error = {}};
}

}  // namespace

ParsedCommand ParseShow(const QString& value) {
    return remote::FunctionOf(value)
               ? Call(u"Show"_s, {value})
               : Wrong(u"--show: \"%1\" is none of "_s.arg(value) + remote::FunctionNames());
}

ParsedCommand ParseStopwatch(const QString& value) {
    return remote::StopwatchActionOf(value)
               ? Call(u"Stopwatch"_s, {value})
               : Wrong(u"--stopwatch: \"%1\" is none of "_s.arg(value) + remote::StopwatchActionNames());
}

ParsedCommand ParseTimer(const QString& value, const QStringList& words) {
    const auto duration = remote::DurationOf(value);
    const QString name = words.value(0);
    if (!duration) {
        return Wrong(u"--timer: \"%1\" is not a time such as 5m30s, from "_s.arg(value) +
                     remote::AllowedDurations());
    }
    if (words.size() > 1) {
        return Wrong(u"unexpected argument: "_s + words.at(1));
    }
    return remote::IsTimerName(name) ? Call(u"Timer"_s, {*duration, name})
                                     : Wrong(u"--timer: the name has "_s + remote::AllowedTimerNames());
}

}  // namespace tickwell::app
