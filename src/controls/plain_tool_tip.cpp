// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/plain_tool_tip.h"

#include <QTextDocument>
#include <QToolTip>

namespace tickwell::controls {

QString PlainToolTip(const QString& text) {
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

void ShowPlainToolTip(QPoint place, const QString& text, QWidget* owner) {
    QToolTip::showText(place, PlainToolTip(text), owner);
}

}  // namespace tickwell::controls
