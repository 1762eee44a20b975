// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <utility>

#include "remote/bus_types.h"
#include "remote/player_interface.h"
#include "remote/ports/player_service.h"
#include "remote/refusal.h"

namespace tickwell {

/// A bus on which the test is the only client: it receives the CD player's signals and makes calls.
class FakePlayerService : public remote::PlayerService {
public:
    void Offer(Run run) override {
        m_run = std::move(run);
        ++offers;
    }
    void Withdraw() override { m_run = nullptr; }
    void TellChanged(const QVariantMap& properties) override { changes.append(properties); }
    void TellJump(qint64 position) override { jumps.append(position); }

    bool IsOffered() const { return m_run != nullptr; }

    /// Makes a call, as another program would. Throws RefusedCall.
    QVariantList Call(const remote::PlayerCall& call) { return m_run(call); }
    QVariantList Call(const char* member, const QVariantList& arguments = {}) {
        return m_run({.interface = {}, .member = QString::fromLatin1(member), .arguments = arguments});
    }
    QVariant Get(const char* property, const char* interface = remote::kPlayerInterface) {
        return Call("Get", {QString::fromLatin1(interface), QString::fromLatin1(property)})
            .constFirst()
            .value<remote::BoxedValue>()
            .value;
    }
    QVariantList TakeChanges() {
        QVariantList taken;
        for (const QVariantMap& each : std::exchange(changes, {})) {
            taken.append(each);
        }
        return taken;
    }

    int offers = 0;
    QList<QVariantMap> changes;
    QList<qint64> jumps;

private:
    Run m_run;
};

}  // namespace tickwell
