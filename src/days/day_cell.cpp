// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/day_cell.h"

#include <QKeyEvent>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QTextDocument>
#include <utility>

#include "days/day_shade.h"

namespace tickwell::days {

using namespace Qt::StringLiterals;

namespace {

constexpr double kRing = 1.5;  // pixels; width of the ring around a pressed day

/// Qt would interpret a name that looks like markup as rich text.
QString ToolTipOf(const QString& name) {
    return Qt::mightBeRichText(name) ? Qt::convertFromPlainText(name) : name;
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
    setToolTip(ToolTipOf(cell.toolTip));
    setAccessibleName(spokenName);
    setChecked(cell.isPressed);
    setVisible(cell.isVisible);
    if (m_color != cell.color) {
        m_color = cell.color;
        update();
    }
}

/// Narrower than the style's buttons, because seven of them are in a row.
QSize DayCell::sizeHint() const {
    const QFontMetrics metrics = fontMetrics();
    const int margin = metrics.height() / 3;
    return {metrics.horizontalAdvance(u"30"_s) + 2 * margin, metrics.height() + margin};
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
    option.palette.setColor(QPalette::ButtonText, ShadeOf(m_color, palette()));
    painter.drawControl(QStyle::CE_PushButtonLabel, option);
    if (isChecked()) {  // some styles hardly show it, above all on dark palettes
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette().color(QPalette::Highlight), kRing));
        painter.drawRoundedRect(QRectF(rect()).adjusted(kRing, kRing, -kRing, -kRing), kRing, kRing);
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
