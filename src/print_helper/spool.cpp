// SPDX-License-Identifier: GPL-3.0-or-later
#include "print_helper/spool.h"

#include <algorithm>

#include "print_helper/protocol.h"

namespace tickwell::print_helper {

namespace {

std::string WithoutControls(std::string text) {
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; };
    std::replace_if(text.begin(), text.end(), isControl, ' ');
    return text;
}

Failure SendDocument(Spool& spool, std::string_view document) {
    Failure failure = spool.StartDocument();
    if (!failure) {
        failure = spool.Write(document);
    }
    return failure ? failure : spool.FinishDocument();
}

}  // namespace

std::string AnswerLine(const Answer& answer) {
    return answer.word + kAnswerJoint + WithoutControls(answer.queue) + kAnswerJoint +
           WithoutControls(answer.reason) + '\n';
}

Failure Submit(Spool& spool, const std::string& title, std::string_view document) {
    if (Failure failure = spool.CreateJob(title)) {
        return failure;
    }
    Failure failure = SendDocument(spool, document);
    if (failure) {
        spool.CancelJob();
    }
    return failure;
}

}  // namespace tickwell::print_helper
