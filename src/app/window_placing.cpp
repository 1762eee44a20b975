// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window_placing.h"

#include <QApplication>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <limits>
#include <tuple>

namespace tickwell::app {

namespace {

// Logical pixels.
constexpr int kGap = 8;  // between two windows
// Assumed upper limits of the window frame; the real frame is known only once the window is shown.
constexpr int kTitle = 32;
constexpr int kBorder = 6;

constexpr char kSetHere[] = "isKeptOnTop";  // property of windows

enum class Side { Below, Above, Right, Left, Over };

/// The cost of a position; the lowest is best.
using Cost = std::tuple<qint64, int, Side, int>;

qint64 AreaOf(const QRect& rect) {
    return rect.isEmpty() ? 0 : qint64{rect.width()} * rect.height();
}

/// Pixels between two ranges, 0 if they touch or overlap.
int Between(int from, int to, int otherFrom, int otherTo) {
    return std::max({0, otherFrom - to - 1, from - otherTo - 1});
}

Side SideOf(const QRect& place, const QRect& opener) {
    if (place.top() > opener.bottom()) {
        return Side::Below;
    }
    if (place.bottom() < opener.top()) {
        return Side::Above;
    }
    if (place.left() > opener.right()) {
        return Side::Right;
    }
    return place.right() < opener.left() ? Side::Left : Side::Over;
}

Cost CostOf(const QRect& place, const QRect& opener, const QList<QRect>& taken) {
    qint64 covered = AreaOf(place & opener);
    for (const QRect& each : taken) {
        covered += AreaOf(place & each);
    }
    const int distance = Between(place.left(), place.right(), opener.left(), opener.right()) +
                         Between(place.top(), place.bottom(), opener.top(), opener.bottom());
    const int shift = (place.topLeft() - opener.topLeft()).manhattanLength();
    return {covered, std::max(distance, kGap), SideOf(place, opener), shift};
}

/// The allowed top-left corners for a window of this size; at least one point.
QRect CornersIn(const QRect& screen, QSize size) {
    const QRect room = screen.adjusted(0, 0, -size.width(), -size.height());
    return {room.topLeft(), QSize(std::max(0, room.width()) + 1, std::max(0, room.height()) + 1)};
}

/// The frame of a window of this program, with an assumed frame if the real one is not known yet.
QRect FrameOf(const QWidget& window) {
    const QRect frame = window.frameGeometry();
    const bool hasFrame = !window.windowFlags().testFlag(Qt::FramelessWindowHint);
    if (!hasFrame || frame.size() != window.size()) {
        return frame;
    }
    return {frame.topLeft(), frame.size() + QSize(2 * kBorder, kTitle + kBorder)};
}

/// The frames of this program's other visible windows.
QList<QRect> TakenBeside(const QWidget& window) {
    QList<QRect> taken;
    for (const QWidget* each : QApplication::topLevelWidgets()) {
        const Qt::WindowType type = each->windowType();
        const bool isPassing = type == Qt::Popup || type == Qt::ToolTip;
        if (each != &window && each->isVisible() && !each->isMinimized() && !isPassing) {
            taken.append(FrameOf(*each));
        }
    }
    return taken;
}

/// Sets the flag, or removes it if it was set here. A window that has it of itself, such as a notice, keeps
/// it.
void KeepOnTop(QWidget& window, bool keeps) {
    const bool isSetHere = window.property(kSetHere).toBool();
    if (isSetHere || !window.windowFlags().testFlag(Qt::WindowStaysOnTopHint)) {
        window.setWindowFlag(Qt::WindowStaysOnTopHint, keeps);
        window.setProperty(kSetHere, keeps);
    }
}

}  // namespace

QPoint PlaceNear(QSize size, const QRect& opener, const QRect& screen, const QList<QRect>& taken) {
    const QRect corners = CornersIn(screen, size);
    QList<int> lefts{opener.left()};
    QList<int> tops{opener.top()};
    for (const QRect& each : QList<QRect>{opener} + taken) {
        // Beside the window or, if there is no room, overlapping it with its title bar left visible.
        lefts.append({each.right() + 1 + kGap, each.left() - kGap - size.width(), each.left() + kTitle});
        tops.append({each.bottom() + 1 + kGap, each.top() - kGap - size.height(), each.top() + kTitle});
    }
    QPoint best = corners.topLeft();
    Cost least{std::numeric_limits<qint64>::max(), 0, Side::Over, 0};
    for (const int left : lefts) {
        for (const int top : tops) {
            const QPoint corner(std::clamp(left, corners.left(), corners.right()),
                                std::clamp(top, corners.top(), corners.bottom()));
            const Cost cost = CostOf(QRect(corner, size), opener, taken);
            if (cost < least) {
                std::tie(best, least) = std::tie(corner, cost);
            }
        }
    }
    return best;
}

void PlaceNear(QWidget& window, const QWidget& opener, OnTop onTop) {
    if (!window.testAttribute(Qt::WA_Resized)) {  // no size was set explicitly
        window.adjustSize();
    }
    const QSize framed = window.size() + QSize(2 * kBorder, kTitle + kBorder);
    const QPoint corner =
        PlaceNear(framed, opener.geometry(), opener.screen()->availableGeometry(), TakenBeside(window));
    const bool covers = QRect(corner, framed).intersects(opener.geometry());
    KeepOnTop(window, onTop == OnTop::Always || covers);
    window.move(corner);
}

QWidget* BlockingWindow() {
    QWidget* active = QApplication::activeModalWidget();
    for (QWidget* modal = active; modal != nullptr; modal = modal->parentWidget()) {
        if (modal->windowModality() == Qt::ApplicationModal) {
            return active;
        }
    }
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (window->isVisible() && window->windowModality() == Qt::ApplicationModal) {
            return window;
        }
    }
    return nullptr;
}

void LetThroughModal(QWidget& window) {
    QWidget* modal = BlockingWindow();
    if (modal == nullptr || modal == &window) {
        return;
    }
    window.winId();  // creates the native window, without which it cannot be exempted from the modal block
    window.windowHandle()->setTransientParent(modal->windowHandle());
}

}  // namespace tickwell::app
