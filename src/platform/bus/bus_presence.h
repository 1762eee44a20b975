// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusVirtualObject>
#include <QTimer>
#include <memory>

#include "platform/bus/message_bus.h"

namespace tickwell::platform {

/// A name and an object of this program on the session bus, through Qt's connection to it. That connection is
/// used only after the bus has answered, and every call is asynchronous, so a bus that hangs delays only the
/// registration. If the bus hung at the start of the program or is lost, there is no registration until the
/// next start.
class BusPresence {
public:
    static constexpr int kRetry = 10'000;  ///< ms between two attempts to reach a bus that does not respond

    struct Names {
        const char* service;
        const char* path;
        const char* consequence;  ///< of having no bus; the second half of a log warning
    };

    BusPresence(const Names& names, int retry);
    ~BusPresence() { Leave(); }
    Q_DISABLE_COPY_MOVE(BusPresence)

    /// Registers the object in place of the previous one. Retries every `retry` ms while the bus does not
    /// respond. If another program owns the name, this one inherits it when that program ends.
    void Appear(std::unique_ptr<QDBusVirtualObject> object);

    /// Removes object and name.
    void Leave();

    /// Broadcasts a signal of the object; does nothing before the object is registered.
    void Tell(const char* interface, const char* signal, const QVariantList& arguments) const;

private:
    void Step();
    void Ask();
    void Register();

    Names m_names;
    int m_retry;
    std::unique_ptr<QDBusVirtualObject> m_object;  // null if none is to be registered
    std::unique_ptr<MessageBus> m_bus;             // only while the bus is being checked
    QTimer m_step;                                 // runs Step outside of the callbacks of m_bus
    bool m_answers = false;                        // whether the bus has responded
    bool m_isRegistered = false;
};

}  // namespace tickwell::platform
