// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/bus/command_bus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <utility>

#include "remote/interface.h"
#include "remote/refusal.h"

namespace tickwell::platform {

/// The object that receives the calls of other programs.
class CommandBus::Object : public QDBusVirtualObject {
public:
    explicit Object(Run run) : m_run(std::move(run)) {}

    QString introspect(const QString& /*path*/) const override {
        return QString::fromLatin1(remote::kIntrospection);
    }

    /// Returning false leaves the call to Qt, which replies with an error.
    bool handleMessage(const QDBusMessage& call, const QDBusConnection& connection) override {
        const QString interface = call.interface();
        if (!interface.isEmpty() && interface != QLatin1StringView(remote::kInterface)) {
            return false;
        }
        const QDBusMessage reply = ReplyTo(call);
        if (call.isReplyRequired()) {
            connection.send(reply);
        }
        return true;
    }

private:
    QDBusMessage ReplyTo(const QDBusMessage& call) const {
        try {
            return call.createReply(m_run(call.member(), call.arguments()));
        } catch (const remote::RefusedCall& refused) {
            return call.createErrorReply(remote::ErrorNameOf(refused.Kind()), refused.Text());
        }
    }

    Run m_run;
};

CommandBus::CommandBus(int retry)
    : m_presence({.service = remote::kService,
                  .path = remote::kPath,
                  .consequence = "other programs cannot send commands"},
                 retry) {}

void CommandBus::Offer(Run run) {
    m_presence.Appear(std::make_unique<Object>(std::move(run)));
}

}  // namespace tickwell::platform
