// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QHash>
#include <QObject>
#include <QStringList>
#include <deque>
#include <functional>
#include <memory>
#include <vector>

#include "core/ports/desktop_notices.h"
#include "platform/bus/message_bus.h"

namespace tickwell::platform {

/// Notices over org.freedesktop.Notifications on the session bus, through Qt's connection to it. That
/// connection is used after the bus has answered once, and all calls are asynchronous, with a second for each
/// answer. Before each notice the service is asked what it can do: one that does not answer gets no notice.
/// Notices are sent, and their outcomes reported, in the order in which they were shown.
class NoticeBus : public QObject, public DesktopNotices {
    Q_OBJECT

public:
    NoticeBus() = default;
    ~NoticeBus() override;
    Q_DISABLE_COPY_MOVE(NoticeBus)

    qint32 Show(const DesktopNotice& notice, std::function<void(Outcome outcome)> onOutcome) override;
    void Close(qint32 number) override;
    void Forget(qint32 number) override { m_notices.remove(number); }
    void Look(std::function<void(bool isThere)> onAnswer) override;

private Q_SLOTS:
    void ActionInvoked(uint id, const QString& key, const QDBusMessage& signal);
    void NotificationClosed(uint id, uint reason, const QDBusMessage& signal);

private:
    /// A notice from Show until it was closed.
    struct Shown {
        DesktopNotice notice;
        std::function<void(Outcome outcome)> onOutcome;
        QString service;        // unique name of the one that shows it; empty until then
        uint id = 0;            // which it has given
        bool isClosed = false;  // before it was shown
    };
    using Reply = std::function<void(const QDBusMessage& reply)>;
    struct PendingCall {
        QDBusPendingCall call;
        Reply onReply;
    };

    void WithBus(std::function<void(bool answers)> then);
    void AskAbilities(std::function<void(const QDBusMessage& reply)> then);
    void Call(const QDBusMessage& message, Reply onReply);
    void HandOutReplies();
    void FindOwner(qint32 number, const QStringList& abilities);
    void Send(qint32 number, const QStringList& abilities, const QString& service);
    void Sent(qint32 number, const QString& service, const QDBusMessage& reply);
    void Finish(qint32 number, Outcome outcome);
    void Listen();
    qint32 NumberOf(uint id, const QString& service) const;

    std::unique_ptr<MessageBus> m_bus;                       // until it has answered
    std::vector<std::function<void(bool answers)>> m_asked;  // wait for that
    bool m_isUsable = false;  // it has answered, so Qt's connection cannot block
    bool m_isMissed = false;  // that nobody shows notices was logged
    bool m_listens = false;
    std::deque<PendingCall> m_calls;  // the earliest first
    qint32 m_last = 0;
    QHash<qint32, Shown> m_notices;
};

}  // namespace tickwell::platform
