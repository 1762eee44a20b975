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

namespace tickwell {

/// Calls over the session's or the system's message bus, none of which ever waits: connecting, authenticating
/// and each call go on from the event loop. Connects with the first call, and anew with the next call after
/// the connection was lost. A bus that hangs is as good as none, until it goes on.
class MessageBus {
public:
    enum class Kind { Session, System };

    static constexpr int kPatience = 1000;  ///< ms for a call, connecting included

    struct Method {
        QByteArray service;
        QByteArray path;
        QByteArray interface;
        QByteArray name;
        QByteArrayList arguments;  ///< texts
        bool mayStart = false;     ///< the bus may start the service for it
    };

    struct Reply {
        std::optional<QVariant> value;  ///< its first, as TakeBusValue has it; nothing if the call failed
        bool hangs = false;             ///< failed since neither bus nor service answered in time
    };
    using Answer = std::function<void(const Reply& reply)>;

    explicit MessageBus(Kind kind);
    ~MessageBus();
    Q_DISABLE_COPY_MOVE(MessageBus)

    /// `onAnswer` is called once: at once if there is no bus, else from the event loop. Not after this
    /// object's end.
    void Call(const Method& method, Answer onAnswer);

    /// Has `onSignal` called for each signal that fits one of the match rules, and when the connection was
    /// lost; from the event loop. Holds from the next connecting on.
    void Listen(QByteArrayList rules, std::function<void()> onSignal);

private:
    struct Unref;
    struct Waiting;
    struct Later {  // a notifier may go from inside its own signal
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

}  // namespace tickwell
