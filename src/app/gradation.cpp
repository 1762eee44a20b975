// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/gradation.h"

#include <QLinearGradient>
#include <QPainter>

namespace tickwell::app {

namespace {

/// `share`: of the second colour, 0 to 1.
QColor Mixed(const QColor& first, const QColor& second, float share) {
    const auto part = [share](float a, float b) { return a + (b - a) * share; };
    return QColor::fromRgbF(part(first.redF(), second.redF()), part(first.greenF(), second.greenF()),
                            part(first.blueF(), second.blueF()));
}

}  // namespace

void Gradation::paintEvent(QPaintEvent* /*event*/) {
    constexpr float kTouch = 0.28F;  // a higher share would reduce the contrast of the text
    const QColor plain = palette().color(QPalette::Window);
    QLinearGradient gradient(rect().topLeft(), rect().bottomRight());
    gradient.setColorAt(0, Mixed(plain, palette().color(QPalette::Base), 0.6F));
    gradient.setColorAt(1, Mixed(plain, palette().color(QPalette::Highlight), kTouch));
    QPainter(this).fillRect(rect(), gradient);
}

}  // namespace tickwell::app
