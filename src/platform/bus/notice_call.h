// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <QVariantList>

#include "core/ports/desktop_notices.h"

namespace tickwell::platform {

/// The arguments of org.freedesktop.Notifications.Notify for a notice. `abilities`: the reply to
/// GetCapabilities. The body is escaped only if the service reads markup in it, the summary never.
QVariantList NotifyArguments(const DesktopNotice& notice, const QStringList& abilities);

}  // namespace tickwell::platform
