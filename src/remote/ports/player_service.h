// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVariantList>
#include <QVariantMap>
#include <functional>

namespace tickwell::remote {

/// A call of another program. Values that QVariant has no type for are those of bus_types.h.
struct PlayerCall {
    QString interface;  ///< may be empty
    QString member;
    QVariantList arguments;
};

/// Where the desktop's media keys and other programs find the CD player.
class PlayerService {
public:
    /// Carries out a call and returns the values of its reply. Throws RefusedCall, nothing else.
    using Run = std::function<QVariantList(const PlayerCall& call)>;

    virtual ~PlayerService() = default;

    /// Calls are passed to `run` from the event loop, from some later moment on. Never waits. If there is no
    /// way to be found, that is logged.
    virtual void Offer(Run run) = 0;

    /// From now on `run` is not called any more, and the player cannot be found. Never waits.
    virtual void Withdraw() = 0;

    /// Tells everybody the new values of properties of the player. Never waits.
    virtual void TellChanged(const QVariantMap& properties) = 0;

    /// Tells everybody that playback goes on at another position, µs. Never waits.
    virtual void TellJump(qint64 position) = 0;
};

}  // namespace tickwell::remote
