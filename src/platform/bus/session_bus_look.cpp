// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/bus/session_bus_look.h"

#include <systemd/sd-bus.h>

#include <QDBusConnection>
#include <QDebug>

#include "platform/bus/bus_ready.h"
#include "platform/log.h"

namespace tickwell::platform {

namespace {

constexpr auto kAddress = "DBUS_SESSION_BUS_ADDRESS";
constexpr std::chrono::milliseconds kPatience{1000};

}  // namespace

SessionBusLook::SessionBusLook() {
    sd_bus* bus = nullptr;
    if (sd_bus_open_user_with_description(&bus, "tickwell") < 0) {
        return;
    }
    m_hangs = WaitUntilReady(bus, kPatience) == BusState::Hangs;  // Qt detects a failure at once
    sd_bus_close_unref(bus);
    if (m_hangs) {
        qCWarning(PlatformLog,
                  "The session bus does not answer: no screen reader and no tray icon over it in this run");
        if (qEnvironmentVariableIsSet(kAddress)) {
            m_address = qgetenv(kAddress);
        }
        qputenv(kAddress, "disabled:");
    }
}

void SessionBusLook::Finish() {
    if (!m_hangs) {
        return;
    }
    QDBusConnection::sessionBus();  // fails at once, and Qt will not try to connect again
    if (m_address) {
        qputenv(kAddress, *m_address);
    } else {
        qunsetenv(kAddress);
    }
}

}  // namespace tickwell::platform
