// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/wrapped_label.h"

namespace tickwell::controls {

WrappedLabel::WrappedLabel(const QString& name, const QString& text, QWidget* parent) : QLabel(text, parent) {
    setObjectName(name);
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
}

void WrappedLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    setMinimumHeight(heightForWidth(width()));
}

}  // namespace tickwell::controls
