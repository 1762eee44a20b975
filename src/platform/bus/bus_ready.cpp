// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/bus/bus_ready.h"

#include <QDeadlineTimer>

namespace tickwell::platform {

BusState WaitUntilReady(sd_bus* bus, std::chrono::milliseconds patience) {
    const QDeadlineTimer deadline(patience);
    while (sd_bus_is_ready(bus) == 0) {
        const int progress = sd_bus_process(bus, nullptr);
        if (progress < 0) {
            return BusState::Failed;
        }
        const qint64 left = deadline.remainingTimeNSecs() / 1000;
        if (progress == 0 && (left <= 0 || sd_bus_wait(bus, static_cast<quint64>(left)) < 0)) {
            return BusState::Hangs;
        }
    }
    return sd_bus_is_ready(bus) > 0 ? BusState::Ready : BusState::Failed;
}

}  // namespace tickwell::platform
