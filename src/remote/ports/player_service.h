// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVariantList>
#include <QVariantMap>
#include <functional>

namespace tickwell::remote {

/// A call from another program. Types that QVariant cannot represent are those of bus_types.h.
struct PlayerCall {
    QString interface;  ///< may be empty
    QString member;
    QVariantList arguments;
};

/// Offers the CD player to the desktop's media keys and to other programs.
class PlayerService {
public:
    /// Carries out a call and returns the values of its reply. Throws RefusedCall, nothing else.
    using Run = std::function<QVariantList(const PlayerCall& call)>;

    virtual ~PlayerService() = default;

    /// Starts passing calls to `run`, from the event loop, at some later time. Never blocks. A failure is
    /// logged.
    virtual void Offer(Run run) = 0;

    /// From now on `run` is no longer called, and the player is no longer registered. Never blocks.
    virtual void Withdraw() = 0;

    /// Broadcasts the new values of properties. Never blocks.
    virtual void TellChanged(const QVariantMap& properties) = 0;

    /// Broadcasts that playback continues at another position, in µs. Never blocks.
    virtual void TellJump(qint64 position) = 0;
};

}  // namespace tickwell::remote
