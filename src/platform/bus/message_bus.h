// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <systemd/sd-bus.h>

#include <QByteArrayList>
#include <QDeadlineTimer>
#include <QSocketNotifier>
#include <QTimer>
#include <QVariant>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tickwell::platform {

/// Asynchronous calls over the session bus or the system bus: connecting, authenticating and calling are
/// driven by the event loop. Connects with the first call, and again with the next call after the connection
/// was lost. A bus that does not answer is treated as absent until it does.
class MessageBus {
public:
    enum class Kind { Session, System };

    static constexpr int kPatience = 1000;  ///< ms for a call, including connecting

    struct Method {
        QByteArray service;
        QByteArray path;
        QByteArray interface;
        QByteArray name;
        QByteArrayList arguments;  ///< texts
        bool mayStart = false;     ///< whether the bus may start the service
    };

    struct Reply {
        std::optional<QVariant> value;  ///< the first one, see TakeBusValue; nullopt if the call failed
        bool hangs = false;             ///< failed because bus or service did not answer in time
    };
    using Answer = std::function<void(const Reply& reply)>;

    explicit MessageBus(Kind kind);
    ~MessageBus();
    Q_DISABLE_COPY_MOVE(MessageBus)

    /// `onAnswer` is called once: immediately if there is no bus, otherwise from the event loop, and never
    /// after this object was destroyed.
    void Call(const Method& method, Answer onAnswer);

    /// Calls `onSignal` from the event loop for each signal that matches one of the rules, and when the
    /// connection is lost. Takes effect with the next connection.
    void Listen(QByteArrayList rules, std::function<void()> onSignal);

    /// Whether there is a connection, or one is being made.
    bool IsConnected() const { return m_bus != nullptr; }

private:
    struct Unref;
    struct Waiting;
    struct Later {  // a notifier may be destroyed by a slot of its own signal
        void operator()(QSocketNotifier* notifier) const;
    };
    using Notifier = std::unique_ptr<QSocketNotifier, Later>;

    static int TakeReply(sd_bus_message* reply, void* waiting, sd_bus_error* error);
    static int TakeSignal(sd_bus_message* signal, void* bus, sd_bus_error* error);

    bool Open();
    void Close();
    bool Send(const Method& method, Waiting& waiting);
    void Process();
    void Watch();
    void GiveUp();
    void Deliver();

    Kind m_kind;
    QByteArrayList m_rules;
    std::function<void()> m_onSignal = [] {};
    sd_bus* m_bus = nullptr;
    bool m_hasSignal = false;
    Notifier m_readable;
    Notifier m_writable;
    std::vector<std::unique_ptr<Waiting>> m_waiting;  // in the order of their deadlines
    QTimer m_patience;
};

}  // namespace tickwell::platform
