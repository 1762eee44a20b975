// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVariantList>

#include "remote/call_allowance.h"
#include "remote/ports/command_target.h"

namespace tickwell::remote {

/// Validates the calls of other programs and carries them out. The methods are those of kIntrospection.
class CommandCalls {
public:
    /// Both outlive this object.
    CommandCalls(CommandTarget& target, RealTimerSource& timers) : m_target(target), m_allowance(timers) {}

    /// Carries out one call and returns the values of its reply: a qint32, a quint32, a QStringList, or none.
    /// Method and arguments are untrusted. Throws RefusedCall, nothing else.
    QVariantList Run(const QString& method, const QVariantList& arguments);

private:
    struct Method;

    QVariantList Show(const QVariantList& arguments);
    QVariantList Stopwatch(const QVariantList& arguments);
    QVariantList Timer(const QVariantList& arguments);
    QVariantList Today(const QVariantList& arguments);
    QVariantList ComeForward(const QVariantList& arguments);

    static const Method& MethodOf(const QString& name);

    CommandTarget& m_target;
    CallAllowance m_allowance;
};

}  // namespace tickwell::remote
