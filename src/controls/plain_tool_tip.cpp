// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/plain_tool_tip.h"

#include <QTextDocument>

namespace tickwell::controls {

QString PlainToolTip(const QString& text) {
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

}  // namespace tickwell::controls
