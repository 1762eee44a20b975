// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/wrapped_label.h"

#include <algorithm>

namespace tickwell::controls {

WrappedLabel::WrappedLabel(const QString& name, const QString& text, QWidget* parent) : QLabel(text, parent) {
    setObjectName(name);
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
}

void WrappedLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    setMinimumHeight(std::max(0, heightForWidth(width())));  // -1 without a text
}

}  // namespace tickwell::controls
