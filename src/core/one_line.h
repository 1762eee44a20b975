// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tickwell {

/// `text` with a space in place of each character that ends a line, separates columns or controls a terminal.
inline QString OnOneLine(QString text) {
    for (QChar& each : text) {
        const QChar::Category category = each.category();
        if (category == QChar::Other_Control || category == QChar::Separator_Line ||
            category == QChar::Separator_Paragraph) {
            each = u' ';
        }
    }
    return text;
}

}  // namespace tickwell
