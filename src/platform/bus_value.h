// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <systemd/sd-bus.h>

#include <QVariant>

namespace tickwell {

/// Takes the next value out of a message: bool, int, uint, qlonglong, qulonglong, double or QString as the
/// message's own type says, the contents of a variant, and a dictionary of variants as a QVariantMap. A value
/// of any other type is skipped, and invalid, as is the one behind the last or in a damaged message.
QVariant TakeBusValue(sd_bus_message* message);

}  // namespace tickwell
