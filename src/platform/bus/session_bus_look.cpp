// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/bus/session_bus_look.h"

#include <systemd/sd-bus.h>

#include <QDBusConnection>
#include <QDeadlineTimer>
#include <QDebug>

#include "platform/log.h"

namespace tickwell::platform {

namespace {

constexpr auto kAddress = "DBUS_SESSION_BUS_ADDRESS";
constexpr int kPatience = 1000;  // ms

/// Whether the bus does not answer in time. False if there is none: Qt detects that at once.
bool Hangs(sd_bus* bus) {
    const QDeadlineTimer deadline(kPatience);
    while (sd_bus_is_ready(bus) == 0) {
        const int progress = sd_bus_process(bus, nullptr);
        if (progress < 0) {
            return false;
        }
        const qint64 left = deadline.remainingTimeNSecs() / 1000;
        if (progress == 0 && (left <= 0 || sd_bus_wait(bus, static_cast<quint64>(left)) < 0)) {
            return true;
        }
    }
    return false;
}

}  // namespace

SessionBusLook::SessionBusLook() {
    sd_bus* bus = nullptr;
    if (sd_bus_open_user_with_description(&bus, "tickwell") < 0) {
        return;
    }
    m_hangs = Hangs(bus);
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
    QDBusConnection::sessionBus();  // fails at once, and Qt does not try again
    if (m_address) {
        qputenv(kAddress, *m_address);
    } else {
        qunsetenv(kAddress);
    }
}

}  // namespace tickwell::platform
