// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/bus/notice_bus.h"

#include <QDBusPendingCallWatcher>
#include <QTimer>
#include <utility>

#include "platform/bus/notice_call.h"
#include "platform/log.h"

namespace tickwell::platform {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kService = "org.freedesktop.Notifications";
constexpr auto kPath = "/org/freedesktop/Notifications";
constexpr int kPatience = 1000;  // ms for each answer

/// `service`: a well-known or unique name.
QDBusMessage MethodCall(const QString& service, const char* method, const QVariantList& arguments) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        service, QString::fromLatin1(kPath), QString::fromLatin1(kService), QString::fromLatin1(method));
    call.setArguments(arguments);
    return call;
}

/// Asks for the unique name of the program that shows notices.
QDBusMessage OwnerQuestion() {
    const QString bus = u"org.freedesktop.DBus"_s;
    QDBusMessage question =
        QDBusMessage::createMethodCall(bus, u"/org/freedesktop/DBus"_s, bus, u"GetNameOwner"_s);
    question.setArguments({QString::fromLatin1(kService)});
    return question;
}

/// Whether the service may have received a call with this reply although it has not answered.
bool IsUnanswered(const QDBusMessage& reply) {
    const QDBusError error(reply);
    return error.type() == QDBusError::NoReply || error.type() == QDBusError::Timeout ||
           error.type() == QDBusError::TimedOut;
}

}  // namespace

NoticeBus::~NoticeBus() {
    m_notices.clear();
}

/// Qt connects with its first use, and would wait for a bus that hangs.
void NoticeBus::WithBus(std::function<void(bool answers)> then) {
    if (m_isUsable) {
        then(QDBusConnection::sessionBus().isConnected());
        return;
    }
    m_asked.push_back(std::move(then));
    if (m_asked.size() > 1) {
        return;
    }
    m_bus = std::make_unique<MessageBus>(MessageBus::Kind::Session);
    const MessageBus::Method getId{
        "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "GetId", {}};
    m_bus->Call(getId, [this](const MessageBus::Reply& reply) {
        // Later: m_bus must not be destroyed by its own callback.
        QTimer::singleShot(0, this, [this, answers = reply.value.has_value()] {
            m_bus.reset();
            m_isUsable = answers;
            for (const auto& asked : std::exchange(m_asked, {})) {
                asked(answers && QDBusConnection::sessionBus().isConnected());
            }
        });
    });
}

void NoticeBus::Call(const QDBusMessage& message, Reply onReply) {
    const QDBusPendingCall call = QDBusConnection::sessionBus().asyncCall(message, kPatience);
    m_calls.push_back({call, std::move(onReply)});
    auto* watcher = new QDBusPendingCallWatcher(call, this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        HandOutReplies();
    });
}

/// A reply that arrives before its call has a watcher is reported later than the replies after it.
void NoticeBus::HandOutReplies() {
    while (!m_calls.empty() && m_calls.front().call.isFinished()) {
        const PendingCall first = std::move(m_calls.front());
        m_calls.pop_front();
        first.onReply(first.call.reply());
    }
}

/// An invalid reply means that there is no bus.
void NoticeBus::AskAbilities(std::function<void(const QDBusMessage& reply)> then) {
    WithBus([this, then = std::move(then)](bool answers) {
        const auto told = [this, then](const QDBusMessage& reply) {
            const bool isThere = reply.type() == QDBusMessage::ReplyMessage;
            if (!isThere && !std::exchange(m_isMissed, true)) {
                qCWarning(PlatformLog).noquote() << "nobody shows notices:" << reply.errorMessage();
            }
            m_isMissed = !isThere;
            then(reply);
        };
        if (answers) {
            Call(MethodCall(QString::fromLatin1(kService), "GetCapabilities", {}), told);
        } else {
            told(QDBusMessage());
        }
    });
}

void NoticeBus::Look(std::function<void(bool isThere)> onAnswer) {
    AskAbilities([onAnswer = std::move(onAnswer)](const QDBusMessage& reply) {
        onAnswer(reply.type() == QDBusMessage::ReplyMessage);
    });
}

qint32 NoticeBus::Show(const DesktopNotice& notice, std::function<void(Outcome outcome)> onOutcome) {
    const qint32 number = ++m_last;
    m_notices.insert(number, {notice, std::move(onOutcome), {}, 0});
    AskAbilities([this, number](const QDBusMessage& reply) {
        if (reply.type() == QDBusMessage::ReplyMessage) {
            FindOwner(number, reply.arguments().value(0).toStringList());
        } else {
            Finish(number, Outcome::NotShown);
        }
    });
    return number;
}

/// Its answer to a notice does not tell who has shown it: Qt 6.8 leaves the sender of a reply out.
void NoticeBus::FindOwner(qint32 number, const QStringList& abilities) {
    Call(OwnerQuestion(), [this, number, abilities](const QDBusMessage& reply) {
        if (reply.type() == QDBusMessage::ReplyMessage) {
            Send(number, abilities, reply.arguments().value(0).toString());
        } else {
            Finish(number, Outcome::NotShown);
        }
    });
}

void NoticeBus::Send(qint32 number, const QStringList& abilities, const QString& service) {
    const auto shown = m_notices.constFind(number);
    if (shown == m_notices.constEnd()) {
        return;
    }
    if (shown->isClosed) {
        m_notices.erase(shown);
        return;
    }
    Listen();
    Call(MethodCall(service, "Notify", NotifyArguments(shown->notice, abilities)),
         [this, number, service](const QDBusMessage& reply) { Sent(number, service, reply); });
}

void NoticeBus::Sent(qint32 number, const QString& service, const QDBusMessage& reply) {
    if (reply.type() != QDBusMessage::ReplyMessage) {
        qCWarning(PlatformLog).noquote() << "a notice was not shown:" << reply.errorMessage();
        Finish(number, IsUnanswered(reply) ? Outcome::Unknown : Outcome::NotShown);
        return;
    }
    const auto shown = m_notices.find(number);
    if (shown == m_notices.end()) {
        return;
    }
    shown->service = service;
    shown->id = reply.arguments().value(0).toUInt();
    if (shown->isClosed) {
        Close(number);
    } else {
        std::exchange(shown->onOutcome, [](Outcome) {})(Outcome::Shown);
    }
}

/// For a notice that cannot be operated.
void NoticeBus::Finish(qint32 number, Outcome outcome) {
    if (m_notices.contains(number)) {
        m_notices.take(number).onOutcome(outcome);
    }
}

/// Without a service's name, whose owner Qt would look for before it goes on; the owner is checked with each
/// signal.
void NoticeBus::Listen() {
    if (std::exchange(m_listens, true)) {
        return;
    }
    QDBusConnection bus = QDBusConnection::sessionBus();
    const QString path = QString::fromLatin1(kPath);
    const QString interface = QString::fromLatin1(kService);
    const bool listens = bus.connect({}, path, interface, u"ActionInvoked"_s, this,
                                     SLOT(ActionInvoked(uint, QString, QDBusMessage))) &&
                         bus.connect({}, path, interface, u"NotificationClosed"_s, this,
                                     SLOT(NotificationClosed(uint, uint, QDBusMessage)));
    if (!listens) {
        qCWarning(PlatformLog, "The actions of notices have no effect");
    }
}

/// A service that was started again gives the same numbers to other notices.
qint32 NoticeBus::NumberOf(uint id, const QString& service) const {
    for (auto shown = m_notices.cbegin(); shown != m_notices.cend(); ++shown) {
        if (shown->id == id && shown->service == service && !service.isEmpty()) {
            return shown.key();
        }
    }
    return 0;
}

void NoticeBus::ActionInvoked(uint id, const QString& key, const QDBusMessage& signal) {
    if (const auto shown = m_notices.constFind(NumberOf(id, signal.service())); shown != m_notices.cend()) {
        const auto onAction = shown->notice.onAction;  // it may close the notice
        onAction(key);
    }
}

void NoticeBus::NotificationClosed(uint id, uint /*reason*/, const QDBusMessage& signal) {
    m_notices.remove(NumberOf(id, signal.service()));
}

void NoticeBus::Close(qint32 number) {
    const auto shown = m_notices.find(number);
    if (shown == m_notices.end()) {
        return;
    }
    if (shown->service.isEmpty()) {  // being sent
        shown->isClosed = true;
        shown->onOutcome = [](Outcome) {};
        return;
    }
    // To the one that shows it, not to one that has taken its place.
    const QDBusMessage close = MethodCall(shown->service, "CloseNotification", {shown->id});
    QDBusConnection::sessionBus().send(close);
    m_notices.erase(shown);
}

}  // namespace tickwell::platform
