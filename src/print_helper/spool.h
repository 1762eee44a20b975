// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tickwell {

/// One line of what the helper tells the program; see protocol.h.
struct Answer {
    std::string word;
    std::string queue;
    std::string reason;

    bool operator==(const Answer&) const = default;
};

/// The line, with its line feed. Control characters in queue and reason become blanks.
std::string AnswerLine(const Answer& answer);

/// Why a step failed; nothing if it did not.
using Failure = std::optional<Answer>;

/// A print queue, as far as one document of one job needs it. The steps are called in this order.
class Spool {
public:
    virtual ~Spool() = default;

    virtual Failure CreateJob(const std::string& title) = 0;
    virtual Failure StartDocument() = 0;
    virtual Failure Write(std::string_view bytes) = 0;
    virtual Failure FinishDocument() = 0;

    /// Removes the job from the queue, as far as that is possible.
    virtual void CancelJob() = 0;
};

/// Hands a PDF document to a queue. If a step fails, no job is left behind.
Failure Submit(Spool& spool, const std::string& title, std::string_view document);

}  // namespace tickwell
