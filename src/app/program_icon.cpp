// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/program_icon.h"

#include <QImageReader>
#include <QPixmap>

namespace tickwell::app {

QIcon ProgramIcon(int largest) {
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256}) {
        if (size > largest) {
            break;
        }
        QImageReader reader(QStringLiteral(":/icons/tickwell-%1.png").arg(size), "png");
        reader.setAutoDetectImageFormat(false);  // otherwise all image format plugins are loaded and tried
        icon.addPixmap(QPixmap::fromImageReader(&reader));
    }
    return icon;
}

}  // namespace tickwell::app
