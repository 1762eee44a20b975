// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/bus/message_bus.h"

#include <poll.h>

#include <algorithm>
#include <limits>
#include <utility>

#include "platform/bus/bus_value.h"

namespace tickwell::platform {

namespace {

constexpr quint64 kNoTimeout = std::numeric_limits<quint64>::max();  // this class has its own deadlines

}  // namespace

struct MessageBus::Unref {
    void operator()(sd_bus_slot* slot) const { sd_bus_slot_unref(slot); }
    void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
};

struct MessageBus::Waiting {
    Answer onAnswer;
    QDeadlineTimer deadline{kPatience};
    std::unique_ptr<sd_bus_slot, Unref> slot;  // destroying it discards a late reply
    bool isDone = false;
    Reply reply;
};

void MessageBus::Later::operator()(QSocketNotifier* notifier) const {
    notifier->setEnabled(false);
    notifier->deleteLater();
}

MessageBus::MessageBus(Kind kind) : m_kind(kind) {
    m_patience.setSingleShot(true);
    m_patience.setTimerType(Qt::PreciseTimer);  // a coarse timer may fire before the deadline
    QObject::connect(&m_patience, &QTimer::timeout, &m_patience, [this] { GiveUp(); });
}

MessageBus::~MessageBus() {
    m_waiting.clear();
    Close();
}

void MessageBus::Call(const Method& method, Answer onAnswer) {
    auto waiting = std::make_unique<Waiting>();
    waiting->onAnswer = std::move(onAnswer);
    if ((m_bus == nullptr && !Open()) || !Send(method, *waiting)) {
        waiting->onAnswer({});
        return;
    }
    m_waiting.push_back(std::move(waiting));
    if (!m_patience.isActive()) {
        m_patience.start(kPatience + 1);
    }
    Watch();
}

void MessageBus::Listen(QByteArrayList rules, std::function<void()> onSignal) {
    m_rules = std::move(rules);
    m_onSignal = std::move(onSignal);
}

/// Starts to connect; false if that fails at once.
bool MessageBus::Open() {
    const int error = m_kind == Kind::Session ? sd_bus_open_user_with_description(&m_bus, "tickwell")
                                              : sd_bus_open_system_with_description(&m_bus, "tickwell");
    if (error < 0) {
        m_bus = nullptr;
        return false;
    }
    return std::all_of(m_rules.cbegin(), m_rules.cend(), [this](const QByteArray& rule) {
        return sd_bus_add_match_async(m_bus, nullptr, rule.constData(), &TakeSignal, nullptr, this) >= 0;
    });
}

/// Discards pending calls without a reply.
void MessageBus::Close() {
    m_readable.reset();
    m_writable.reset();
    for (const auto& waiting : m_waiting) {
        waiting->slot.reset();
        waiting->isDone = true;
    }
    m_bus = sd_bus_close_unref(m_bus);
}

bool MessageBus::Send(const Method& method, Waiting& waiting) {
    sd_bus_message* made = nullptr;
    if (sd_bus_message_new_method_call(m_bus, &made, method.service, method.path, method.interface,
                                       method.name) < 0) {
        return false;
    }
    const std::unique_ptr<sd_bus_message, Unref> message(made);
    for (const QByteArray& argument : method.arguments) {
        if (sd_bus_message_append_basic(made, SD_BUS_TYPE_STRING, argument.constData()) < 0) {
            return false;
        }
    }
    if (sd_bus_message_set_auto_start(made, method.mayStart ? 1 : 0) < 0) {
        return false;
    }
    sd_bus_slot* slot = nullptr;
    if (sd_bus_call_async(m_bus, &slot, made, &TakeReply, &waiting, kNoTimeout) < 0) {
        Close();  // connection lost
        return false;
    }
    waiting.slot.reset(slot);
    return true;
}

int MessageBus::TakeReply(sd_bus_message* reply, void* waiting, sd_bus_error* /*error*/) {
    auto& call = *static_cast<Waiting*>(waiting);
    call.isDone = true;
    if (sd_bus_message_is_method_error(reply, nullptr) == 0) {
        call.reply.value = TakeBusValue(reply);
    }
    return 0;
}

int MessageBus::TakeSignal(sd_bus_message* /*signal*/, void* bus, sd_bus_error* /*error*/) {
    static_cast<MessageBus*>(bus)->m_hasSignal = true;
    return 0;
}

/// Lets sd-bus process pending events. Replies and signals are delivered later, outside of its callbacks.
void MessageBus::Process() {
    const bool wasReady = sd_bus_is_ready(m_bus) > 0;
    int progress = 0;
    while ((progress = sd_bus_process(m_bus, nullptr)) > 0) {
    }
    if (progress < 0) {
        Close();
        m_hasSignal = wasReady;
    }
    Deliver();
    Watch();
}

/// Waits for the events that sd-bus needs. Its descriptor may change with each step of connecting.
void MessageBus::Watch() {
    if (m_bus == nullptr) {
        return;
    }
    const int descriptor = sd_bus_get_fd(m_bus);
    const int events = sd_bus_get_events(m_bus);
    if (descriptor < 0 || events < 0) {
        Close();
        QTimer::singleShot(0, &m_patience, [this] { Deliver(); });
        return;
    }
    const auto watch = [&](Notifier& notifier, QSocketNotifier::Type type, int event) {
        if (notifier == nullptr || notifier->socket() != descriptor) {
            notifier.reset(new QSocketNotifier(descriptor, type));
            QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(),
                             [this] { Process(); });
        }
        notifier->setEnabled((events & event) != 0);
    };
    watch(m_readable, QSocketNotifier::Read, POLLIN);
    watch(m_writable, QSocketNotifier::Write, POLLOUT);
}

/// Ends the calls whose deadline has passed, and closes a connection that is not established by then.
void MessageBus::GiveUp() {
    for (const auto& waiting : m_waiting) {
        if (waiting->deadline.hasExpired()) {
            waiting->slot.reset();
            waiting->reply.hangs = true;
            waiting->isDone = true;
        }
    }
    if (m_bus != nullptr && sd_bus_is_ready(m_bus) <= 0) {
        Close();
    }
    Deliver();
}

/// Delivers the replies of completed calls; the callbacks may make new calls.
void MessageBus::Deliver() {
    const auto isDone = [](const std::unique_ptr<Waiting>& waiting) { return waiting->isDone; };
    for (auto done = m_waiting.begin();
         (done = std::find_if(m_waiting.begin(), m_waiting.end(), isDone)) != m_waiting.end();) {
        const std::unique_ptr<Waiting> call = std::move(*done);
        m_waiting.erase(done);
        call->onAnswer(call->reply);
    }
    if (std::exchange(m_hasSignal, false)) {
        m_onSignal();
    }
    m_patience.stop();
    if (!m_waiting.empty()) {
        m_patience.start(static_cast<int>(m_waiting.front()->deadline.remainingTime()) + 1);
    }
}

}  // namespace tickwell::platform
