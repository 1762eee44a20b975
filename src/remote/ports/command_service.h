// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVariantList>
#include <functional>

namespace tickwell::remote {

/// Where other programs of the user find this one.
class CommandService {
public:
    /// Carries out a call and returns the values of its reply. Throws RefusedCall, nothing else.
    using Run = std::function<QVariantList(const QString& method, const QVariantList& arguments)>;

    virtual ~CommandService() = default;

    /// Calls are passed to `run` from the event loop, from some later moment on. Never waits. If there is no
    /// way to be found, that is logged.
    virtual void Offer(Run run) = 0;

    /// From now on `run` is not called any more, and nothing of this program can be found. Never waits.
    virtual void Withdraw() = 0;
};

}  // namespace tickwell::remote
