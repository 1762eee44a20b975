// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window_placing.h"

#include <QScreen>
#include <algorithm>

namespace tickwell {

namespace {

constexpr int kGap = 8;     // pixels between the two
constexpr int kFrame = 40;  // what a window manager may add to the height, its title above all

}  // namespace

QPoint PlaceNear(QSize size, const QRect& opener, const QRect& screen) {
    const QSize framed = size + QSize(0, kFrame);
    const QRect room = screen.adjusted(0, 0, 1 - framed.width(), 1 - framed.height());  // for the corner
    const int below = opener.bottom() + kGap;
    const int above = opener.top() - kGap - framed.height();
    const int right = opener.right() + kGap;
    const int left = opener.left() - kGap - framed.width();
    QPoint corner(opener.left(), below);
    if (below > room.bottom() && above >= room.top()) {
        corner.setY(above);
    } else if (below > room.bottom()) {
        corner = {right <= room.right() ? right : left, opener.top()};
    }
    return {std::max(room.left(), std::min(corner.x(), room.right())),
            std::max(room.top(), std::min(corner.y(), room.bottom()))};
}

void PlaceNear(QWidget& window, const QWidget& opener) {
    window.setWindowFlag(Qt::WindowStaysOnTopHint);
    window.adjustSize();
    window.move(PlaceNear(window.size(), opener.geometry(), opener.screen()->availableGeometry()));
}

}  // namespace tickwell
