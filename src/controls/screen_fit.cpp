// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/screen_fit.h"

#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>

namespace tickwell::controls {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFrame = 38;  // logical pixels: title bar and border of a common window manager

void MoveFirst(QVBoxLayout& from, QVBoxLayout& to) {
    QLayoutItem* item = from.takeAt(0);
    if (QWidget* widget = item->widget()) {
        to.addWidget(widget);
        delete item;
    } else if (QLayout* layout = item->layout()) {
        layout->setParent(nullptr);
        to.addLayout(layout);
    } else {
        to.addItem(item);
    }
}

}  // namespace

int RoomFor(const QWidget& window) {
    return window.screen()->availableGeometry().height() - kFrame;
}

void ScrollIfTooHigh(QVBoxLayout& rows, int below, int room) {
    const int missing = rows.totalSizeHint().height() - room;
    if (missing <= 0) {
        return;
    }
    auto* moved = new QWidget;
    auto* movedRows = new QVBoxLayout(moved);
    movedRows->setContentsMargins(0, 0, 0, 0);
    while (rows.count() > below) {
        MoveFirst(rows, *movedRows);
    }
    auto* area = new QScrollArea;
    area->setObjectName(u"Rows"_s);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);  // it follows the focus of what it contains
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidgetResizable(true);
    area->setWidget(moved);
    const QSize whole = movedRows->totalSizeHint();
    area->setMinimumWidth(whole.width() + area->verticalScrollBar()->sizeHint().width());
    area->setFixedHeight(std::max(whole.height() - missing, area->fontMetrics().height() * 3));
    rows.insertWidget(0, area);
}

}  // namespace tickwell::controls
