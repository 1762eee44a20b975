// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/remote_commands.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>

#include "app/line_output.h"
#include "app/option_table.h"
#include "core/errors.h"
#include "core/one_line.h"
#include "remote/refusal.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;
using platform::CommandAnswer;

namespace {

constexpr int kRefused = 1;
constexpr int kWrongCommand = 2;
constexpr int kNobody = 3;

/// D-Bus errors that mean that no reply arrived in time.
constexpr std::array<QStringView, 3> kNoReply{
    u"org.freedesktop.DBus.Error.NoReply", u"org.freedesktop.DBus.Error.Timeout", u"System.Error.ETIMEDOUT"};

QString NobodySentence(bool inJapanese) {
    return inJapanese ? u"操作を受ける時計が動いていません（環境設定の「連携」で受けるようにできます）。"_s
                      : u"no running clock accepts commands (page 連携 of its settings)"_s;
}

QString RefusalSentence(const CommandAnswer& answer, bool inJapanese) {
    if (std::find(kNoReply.begin(), kNoReply.end(), answer.errorName) != kNoReply.end()) {
        return inJapanese ? u"時計が応答しません。"_s : u"The clock does not answer."_s;
    }
    const QString text = answer.errorText.isEmpty() ? answer.errorName : answer.errorText;
    return OnOneLine(remote::SentenceOf(answer.errorName, text, inJapanese));
}

int Print(const CommandOutcome& outcome) {
    if (!outcome.error.isEmpty()) {
        std::fprintf(stderr, "tickwell: %s\n", qUtf8Printable(outcome.error));
    } else if (!outcome.output.isEmpty()) {
        LineOutput output(STDOUT_FILENO);
        output.Add(outcome.output);
        output.Flush();
    }
    return outcome.exitCode;
}

}  // namespace

CommandOutcome OutcomeOf(const CommandAnswer& answer, bool inJapanese) {
    switch (answer.kind) {
        case CommandAnswer::Kind::Done:
            return {.exitCode = 0,
                    .output = answer.value.isValid() ? answer.value.toString() : QString(),
                    .error = {}};
        case CommandAnswer::Kind::Nobody:
            return {.exitCode = kNobody, .output = {}, .error = NobodySentence(inJapanese)};
        case CommandAnswer::Kind::Refused:
            break;
    }
    return {.exitCode = kRefused, .output = {}, .error = RefusalSentence(answer, inJapanese)};
}

int RunRemoteCommand(const Options& options) {
    if (!options.command) {
        return Print({.exitCode = kWrongCommand, .output = {}, .error = OnOneLine(options.error)});
    }
    std::signal(SIGPIPE, SIG_IGN);  // a reader that closes the pipe early is not an error
    const CommandAnswer answer = platform::CallCommand(options.command->method, options.command->arguments);
    try {
        return Print(OutcomeOf(answer, WantsJapanese()));
    } catch (const RunTimeError& error) {  // standard output is not writable
        return Print({.exitCode = kRefused, .output = {}, .error = OnOneLine(error.Reason())});
    }
}

}  // namespace tickwell::app
