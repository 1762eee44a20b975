// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/tab_order.h"

#include <QLayout>

namespace tickwell::controls {

namespace {

void Collect(const QLayout& layout, QWidgetList& found) {
    for (int index = 0; index < layout.count(); ++index) {
        QLayoutItem* item = layout.itemAt(index);
        QWidget* widget = item->widget();
        const QLayout* inner = widget != nullptr ? widget->layout() : item->layout();
        if (widget != nullptr && widget->focusPolicy() != Qt::NoFocus) {
            found.append(widget);
        }
        if (inner != nullptr) {
            Collect(*inner, found);
        }
    }
}

}  // namespace

void TabInLayoutOrder(const QWidget& parent) {
    QWidgetList controls;
    if (parent.layout() != nullptr) {
        Collect(*parent.layout(), controls);
    }
    for (qsizetype index = 1; index < controls.size(); ++index) {
        QWidget::setTabOrder(controls.at(index - 1), controls.at(index));
    }
}

}  // namespace tickwell::controls
