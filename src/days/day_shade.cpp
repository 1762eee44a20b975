// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/day_shade.h"

namespace tickwell::days {

namespace {

constexpr int kHalfLight = 128;

}  // namespace

QColor ShadeOf(DayColor color, const QPalette& palette) {
    const bool isDark = qGray(palette.color(QPalette::Button).rgb()) < kHalfLight;
    switch (color) {
        case DayColor::Red:
            return isDark ? QColor(255, 128, 120) : QColor(255, 0, 0);
        case DayColor::Blue:
            return isDark ? QColor(128, 180, 255) : QColor(0, 0, 255);
        case DayColor::Black:
            break;
    }
    return palette.color(QPalette::ButtonText);
}

}  // namespace tickwell::days
