// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <systemd/sd-bus.h>

#include <QVariant>

namespace tickwell::platform {

/// Reads the next value of a message: bool, int, uint, qlonglong, qulonglong, double or QString as the
/// message's own type says, the contents of a variant, and a dictionary of variants as a QVariantMap. Values
/// of other types are skipped and returned as invalid, as is the value after the last or in a damaged
/// message.
QVariant TakeBusValue(sd_bus_message* message);

}  // namespace tickwell::platform
