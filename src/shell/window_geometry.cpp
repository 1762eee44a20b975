// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/window_geometry.h"

#include <algorithm>

#include "core/integers.h"

namespace tickwell::shell {

namespace {

constexpr qint32 kTwipsPerPixel = 15;
constexpr int kLowestHeight = 600 / kTwipsPerPixel;
constexpr int kMargin = 2;           // pixels above and below each text
constexpr int kSystemLimit = 32000;  // positions and sizes in X11 have 16 bits

int Guarded(int pixels, int lowest) {
    return std::clamp(pixels, lowest, kSystemLimit);
}

}  // namespace

int PixelsOf(qint32 twips) {
    return static_cast<int>(RoundHalfEven(twips, kTwipsPerPixel));
}

QPoint GeometryKeeper::Position() const {
    return {Guarded(PixelsOf(m_geometry.left), -kSystemLimit),
            Guarded(PixelsOf(m_geometry.top), -kSystemLimit)};
}

int GeometryKeeper::Width() const {
    return Guarded(PixelsOf(m_geometry.width), 1);
}

bool GeometryKeeper::Moved(QPoint position) {
    if (m_placings > 0 && position != Position()) {
        --m_placings;
        return true;
    }
    if (position.x() != Position().x()) {
        m_geometry.left = position.x() * kTwipsPerPixel;
    }
    if (position.y() != Position().y()) {
        m_geometry.top = position.y() * kTwipsPerPixel;
    }
    return false;
}

void GeometryKeeper::Resized(int width) {
    if (width != Width()) {
        m_geometry.width = width * kTwipsPerPixel;
    }
}

LineLayout LayoutOf(int width, int upperTextHeight, int lowerTextHeight, int windowHeight) {
    const int upperNeed = upperTextHeight + 2 * kMargin;
    const int lowerNeed = lowerTextHeight + 2 * kMargin;
    const int height = Guarded(std::max(upperNeed + lowerNeed, windowHeight), kLowestHeight);
    const int upperHeight = std::min(upperNeed + std::max(0, height - upperNeed - lowerNeed) / 2, height);
    return {QRect(0, 0, width, upperHeight), QRect(0, upperHeight, width, height - upperHeight), height};
}

QRect BroughtBack(const QRect& window, const QList<QRect>& screens, const QRect& screen) {
    const bool seen = std::any_of(screens.begin(), screens.end(),
                                  [&](const QRect& each) { return each.intersects(window); });
    return seen ? window : QRect(screen.topLeft(), window.size());
}

}  // namespace tickwell::shell
