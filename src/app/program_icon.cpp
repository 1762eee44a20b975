// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/program_icon.h"

#include <QSize>

namespace tickwell {

QIcon ProgramIcon() {
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256}) {
        icon.addFile(QStringLiteral(":/icons/tickwell-%1.png").arg(size), QSize(size, size));
    }
    return icon;
}

}  // namespace tickwell
