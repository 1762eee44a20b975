// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVariantList>
#include <functional>

namespace tickwell::remote {

/// Offers this program's commands to other programs of the user.
class CommandService {
public:
    /// Carries out a call and returns the values of its reply. Throws RefusedCall, nothing else.
    using Run = std::function<QVariantList(const QString& method, const QVariantList& arguments)>;

    virtual ~CommandService() = default;

    /// Starts passing calls to `run`, from the event loop, at some later time. Never blocks. A failure is
    /// logged.
    virtual void Offer(Run run) = 0;

    /// From now on `run` is no longer called, and the program is no longer registered. Never blocks.
    virtual void Withdraw() = 0;
};

}  // namespace tickwell::remote
