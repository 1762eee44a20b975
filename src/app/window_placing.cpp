// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window_placing.h"

#include <QApplication>
#include <QScreen>
#include <QWindow>
#include <algorithm>

namespace tickwell {

namespace {

constexpr int kGap = 8;     // pixels between the two
constexpr int kTitle = 32;  // what a window manager may add above

}  // namespace

QPoint PlaceNear(QSize size, const QRect& opener, const QRect& screen) {
    const QRect room = screen.adjusted(0, kTitle, -size.width(), -size.height());  // for the corner
    const int below = opener.bottom() + 1 + kGap + kTitle;
    const int above = opener.top() - kGap - size.height();
    const int right = opener.right() + 1 + kGap;
    const int left = opener.left() - kGap - size.width();
    QPoint corner(opener.left(), below);
    if (below > room.bottom() && above >= room.top()) {
        corner.setY(above);
    } else if (below > room.bottom()) {
        corner = {right <= room.right() ? right : left, opener.top() + kTitle};
    }
    return {std::max(room.left(), std::min(corner.x(), room.right())),
            std::max(room.top(), std::min(corner.y(), room.bottom()))};
}

void PlaceNear(QWidget& window, const QWidget& opener) {
    window.setWindowFlag(Qt::WindowStaysOnTopHint);
    if (!window.testAttribute(Qt::WA_Resized)) {  // it has no size of its own
        window.adjustSize();
    }
    window.move(PlaceNear(window.size(), opener.geometry(), opener.screen()->availableGeometry()));
}

void LetThroughModal(QWidget& window) {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr || modal == &window) {
        return;
    }
    window.winId();  // makes the window behind it, which is what is blocked
    window.windowHandle()->setTransientParent(modal->windowHandle());
}

}  // namespace tickwell
