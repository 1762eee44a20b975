// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tickwell::print_helper {

/// One line of output of the helper; see protocol.h.
struct Answer {
    std::string word;
    std::string queue;
    std::string reason;

    bool operator==(const Answer&) const = default;
};

/// The line with its line feed. Control characters in queue and reason are replaced by spaces.
std::string AnswerLine(const Answer& answer);

/// The reason why a step failed; nullopt on success.
using Failure = std::optional<Answer>;

/// The operations of a print queue for one job with one document, in calling order.
class Spool {
public:
    virtual ~Spool() = default;

    virtual Failure CreateJob(const std::string& title) = 0;
    virtual Failure StartDocument() = 0;
    virtual Failure Write(std::string_view bytes) = 0;
    virtual Failure FinishDocument() = 0;

    /// Removes the job from the queue if possible.
    virtual void CancelJob() = 0;
};

/// Sends a PDF document to a queue. If a step fails, removes the job.
Failure Submit(Spool& spool, const std::string& title, std::string_view document);

}  // namespace tickwell::print_helper
