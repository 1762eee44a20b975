// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/pixel_transfer.h"

#include <QByteArray>

namespace tickwell::platform {

void PaintWithoutSharedMemory() {
    constexpr auto kWithout = "QT_XCB_NO_MITSHM";
    if (!qEnvironmentVariableIsSet(kWithout)) {
        qputenv(kWithout, QByteArrayLiteral("1"));
    }
}

}  // namespace tickwell::platform
