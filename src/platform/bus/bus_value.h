// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <systemd/sd-bus.h>

#include <QVariant>

namespace tickwell::platform {

/// Reads the next value of a message. The result contains a bool, int, uint, qlonglong, qulonglong, double or
/// QString, according to the type in the message; the contents of a variant; or a dictionary of variants as a
/// QVariantMap. A value of another type is skipped. In that case, at the end of the message and if it is
/// damaged, the result is invalid.
QVariant TakeBusValue(sd_bus_message* message);

}  // namespace tickwell::platform
