// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusVirtualObject>
#include <QTimer>
#include <memory>

#include "platform/bus/message_bus.h"

namespace tickwell::platform {

/// A name and an object that this program has on the session bus, through Qt's connection to it. That
/// connection is only used after the bus has answered, and every call of ours is asynchronous, so a bus that
/// hangs delays the presence and nothing else. If the bus hung at the start of the program or is lost, there
/// is none until the next start.
class BusPresence {
public:
    static constexpr int kRetry = 10'000;  ///< ms between two attempts to reach a bus that does not answer

    struct Names {
        const char* service;
        const char* path;
        const char* consequence;  ///< of having no bus: the end of a warning
    };

    BusPresence(const Names& names, int retry);
    ~BusPresence() { Leave(); }
    Q_DISABLE_COPY_MOVE(BusPresence)

    /// Puts the object on the bus, in place of the last one. If the bus does not answer, asks it again every
    /// `retry` ms. If another program has the name, this one gets it when that one ends.
    void Appear(std::unique_ptr<QDBusVirtualObject> object);

    /// Removes object and name.
    void Leave();

    /// Sends a signal of the object to everybody; nothing before the object is on the bus.
    void Tell(const char* interface, const char* signal, const QVariantList& arguments) const;

private:
    void Step();
    void Ask();
    void Register();

    Names m_names;
    int m_retry;
    std::unique_ptr<QDBusVirtualObject> m_object;  // null while there is none
    std::unique_ptr<MessageBus> m_bus;             // only while the bus is asked
    QTimer m_step;                                 // runs Step outside of the callbacks of m_bus
    bool m_answers = false;                        // the bus did
    bool m_isRegistered = false;
};

}  // namespace tickwell::platform
