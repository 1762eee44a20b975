// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QPainter>
#include <QStringList>

namespace tickwell::print_helper {

/// Paints plain text lines on as many pages as needed. What follows a tab in a line is painted in a second
/// column, which begins two spaces after the longest text before a tab on that page.
class ReportPainter {
public:
    explicit ReportPainter(QStringList lines);

    /// Paints page `number`, counted from 0, into `area` of the painter's device; returns whether another
    /// page follows.
    bool Paint(QPainter& painter, const QRectF& area, int number) const;

private:
    QStringList m_lines;
    QFont m_font;
};

}  // namespace tickwell::print_helper
