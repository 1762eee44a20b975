// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/day_cell.h"

#include <QKeyEvent>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <algorithm>
#include <utility>

#include "controls/plain_tool_tip.h"
#include "days/day_shade.h"

namespace tickwell::days {

using namespace Qt::StringLiterals;

namespace {

// pixels
constexpr double kRing = 1.5;   // width of the ring around a pressed day
constexpr double kFrame = 0.5;  // distance of the frame around today from the edge

QString ToolTipOf(const MonthCell& cell) {
    const bool hasBoth = !cell.toolTip.isEmpty() && !cell.almanac.isEmpty();
    return controls::PlainToolTip(cell.toolTip + (hasBoth ? u"\n"_s : QString()) + cell.almanac);
}

}  // namespace

DayCell::DayCell(QWidget* parent) : QPushButton(parent) {
    setCheckable(true);
    setAutoDefault(false);
    setFocusPolicy(Qt::ClickFocus);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    policy.setRetainSizeWhenHidden(true);
    setSizePolicy(policy);
}

void DayCell::Show(const MonthCell& cell, const QString& spokenName) {
    setText(cell.caption);
    setToolTip(ToolTipOf(cell));
    setAccessibleName(spokenName);
    setChecked(cell.isPressed);
    setVisible(cell.isVisible);
    if (m_cell != cell) {
        m_cell = cell;
        update();
    }
}

void DayCell::SetUnder(UnderDays under) {
    if (std::exchange(m_under, under) != under) {
        updateGeometry();
    }
}

QFont DayCell::SmallFont() const {
    QFont small = font();
    if (small.pixelSize() > 0) {
        small.setPixelSize(std::max(1, small.pixelSize() / 2));
    } else {
        small.setPointSizeF(small.pointSizeF() / 2);
    }
    return small;
}

/// Narrower than the style's buttons, because seven of them are in a row.
QSize DayCell::sizeHint() const {
    const QFontMetrics metrics = fontMetrics();
    const int margin = metrics.height() / 3;
    const QSize number(metrics.horizontalAdvance(u"30"_s) + 2 * margin, metrics.height() + margin);
    if (m_under == UnderDays::Nothing) {
        return number;
    }
    const QFontMetrics small(SmallFont());
    const int below = small.horizontalAdvance(m_under == UnderDays::SixDay ? u"大安"_s : u"閏10/30"_s);
    return {std::max(number.width(), below + margin), number.height() + small.height()};
}

/// Draws only the number with a palette of its own: styles cache an image of each button by its palette.
void DayCell::paintEvent(QPaintEvent* /*event*/) {
    QStyleOptionButton option;
    initStyleOption(&option);
    const QString number = std::exchange(option.text, QString());
    QStylePainter painter(this);
    painter.drawControl(QStyle::CE_PushButton, option);
    option.text = number;
    option.rect = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this);
    option.palette.setColor(QPalette::ButtonText, ShadeOf(m_cell.color, palette()));
    if (m_under != UnderDays::Nothing) {
        const QFont small = SmallFont();
        QRect below = rect();
        below.setTop(rect().bottom() - QFontMetrics(small).height() - fontMetrics().height() / 6);
        option.rect.setBottom(below.top());
        painter.setFont(small);
        painter.setPen(option.palette.color(QPalette::ButtonText));
        painter.drawText(below, Qt::AlignHCenter | Qt::AlignTop, m_cell.below);
        painter.setFont(font());
    }
    painter.drawControl(QStyle::CE_PushButtonLabel, option);
    painter.setRenderHint(QPainter::Antialiasing);
    PaintMarks(painter);
}

/// A ring if the day is pressed, because some styles hardly show it, above all on dark palettes; a frame if
/// it is today; a dot if it has an anniversary.
void DayCell::PaintMarks(QPainter& painter) {
    if (m_cell.isToday) {
        painter.setPen(QPen(palette().color(QPalette::ButtonText), 1));
        painter.drawRect(QRectF(rect()).adjusted(kFrame, kFrame, -kFrame, -kFrame));
    }
    if (isChecked()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), kRing));
        painter.drawRoundedRect(QRectF(rect()).adjusted(kRing, kRing, -kRing, -kRing), kRing, kRing);
    }
    if (m_cell.hasAnniversary) {
        const double radius = fontMetrics().height() / 8.0;
        const double inset = kRing + 2 * radius;
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().color(QPalette::ButtonText));
        painter.drawEllipse(QPointF(width() - inset, inset), radius, radius);
    }
}

/// Leaves the arrow keys to the grid.
void DayCell::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Up:
        case Qt::Key_Down:
            event->ignore();
            return;
        default:
            QPushButton::keyPressEvent(event);
    }
}

}  // namespace tickwell::days
