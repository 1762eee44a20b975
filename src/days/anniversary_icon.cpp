// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/anniversary_icon.h"

#include <QPainter>
#include <QPixmap>
#include <array>
#include <cmath>
#include <numbers>

namespace tickwell::days {

namespace {

constexpr std::array kSizes{16, 24, 32, 48, 64};  // pixels
constexpr int kCorners = 10;                      // five tips and the five notches between them
constexpr double kNotch = 0.45;                   // distance from the centre, relative to the tips

QPolygonF Star(double size) {
    QPolygonF corners;
    for (int corner = 0; corner < kCorners; ++corner) {
        const double distance = (corner % 2 == 0 ? 1 : kNotch) * size * 0.46;
        const double angle = corner * 2 * std::numbers::pi / kCorners;
        corners.append({size / 2 + distance * std::sin(angle), size * 0.53 - distance * std::cos(angle)});
    }
    return corners;
}

QPixmap StarOf(int size) {
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(176, 120, 0), size / 16.0));
    painter.setBrush(QColor(255, 200, 40));
    painter.drawPolygon(Star(size));
    return picture;
}

}  // namespace

QIcon AnniversaryIcon() {
    QIcon icon;
    for (const int size : kSizes) {
        icon.addPixmap(StarOf(size));
    }
    return icon;
}

}  // namespace tickwell::days
