// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

#include "remote/call_allowance.h"
#include "remote/ports/player_service.h"
#include "remote/ports/player_target.h"

namespace tickwell::remote {

/// Validates the calls that media keys and other programs make to the CD player, and carries them out. The
/// methods and properties are those of kPlayerIntrospection.
class PlayerCalls {
public:
    /// Both outlive this object.
    PlayerCalls(PlayerTarget& target, RealTimerSource& timers) : m_target(target), m_allowance(timers) {}

    /// Carries out one call and returns the values of its reply. The call is untrusted. Throws RefusedCall,
    /// nothing else.
    QVariantList Run(const PlayerCall& call);

private:
    struct Method;

    QVariantList Raise(const QVariantList& arguments);
    QVariantList Quit(const QVariantList& arguments);
    QVariantList Next(const QVariantList& arguments);
    QVariantList Previous(const QVariantList& arguments);
    QVariantList Pause(const QVariantList& arguments);
    QVariantList PlayPause(const QVariantList& arguments);
    QVariantList Stop(const QVariantList& arguments);
    QVariantList Play(const QVariantList& arguments);
    QVariantList Seek(const QVariantList& arguments);
    QVariantList SetPosition(const QVariantList& arguments);
    QVariantList OpenUri(const QVariantList& arguments);
    QVariantList Get(const QVariantList& arguments);
    QVariantList GetAll(const QVariantList& arguments);
    QVariantList Set(const QVariantList& arguments);

    static std::span<const Method> Methods();
    static const Method& MethodOf(const PlayerCall& call);
    QVariantMap PropertiesOf(const QString& interface) const;

    PlayerTarget& m_target;
    CallAllowance m_allowance;
};

}  // namespace tickwell::remote
