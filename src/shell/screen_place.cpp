// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/screen_place.h"

#include <QRegion>
#include <algorithm>

namespace tickwell::shell {

namespace {

qint64 AreaOf(const QRect& part) {
    return part.isEmpty() ? 0 : qint64{part.width()} * part.height();
}

bool IsShownWhole(const QRect& window, const QList<NamedScreen>& screens) {
    QRegion hidden(window);
    for (const NamedScreen& screen : screens) {
        hidden -= screen.area;
    }
    return hidden.isEmpty();
}

QPoint MovedInto(const QRect& screen, const QRect& window) {
    const int lastLeft = screen.right() + 1 - window.width();
    const int lastTop = screen.bottom() + 1 - window.height();
    return {std::max(screen.left(), std::min(window.left(), lastLeft)),
            std::max(screen.top(), std::min(window.top(), lastTop))};
}

}  // namespace

ScreenPlace PlaceOf(const QRect& window, const QList<NamedScreen>& screens) {
    ScreenPlace place;
    qint64 largest = 0;
    for (const NamedScreen& screen : screens) {
        const qint64 part = AreaOf(screen.area & window);
        if (part > largest) {
            largest = part;
            place = {screen.name, window.topLeft() - screen.area.topLeft()};
        }
    }
    return place;
}

QPoint PositionInside(const QRect& window, const ScreenPlace& remembered, const QList<NamedScreen>& screens) {
    QRect wanted = window;
    for (const NamedScreen& screen : screens) {
        if (!remembered.screen.isEmpty() && screen.name == remembered.screen) {
            wanted.moveTo(screen.area.topLeft() + remembered.offset);
        }
    }
    if (screens.isEmpty() || IsShownWhole(wanted, screens)) {
        return wanted.topLeft();
    }
    const auto distance = [&wanted](const NamedScreen& screen) {
        return (MovedInto(screen.area, wanted) - wanted.topLeft()).manhattanLength();
    };
    const auto nearest = std::min_element(
        screens.begin(), screens.end(),
        [&](const NamedScreen& one, const NamedScreen& other) { return distance(one) < distance(other); });
    return MovedInto(nearest->area, wanted);
}

}  // namespace tickwell::shell
