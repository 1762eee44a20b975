// SPDX-License-Identifier: GPL-3.0-or-later
#include "print_helper/report_painter.h"

#include <QFontMetricsF>
#include <algorithm>

#include "core/font_names.h"

namespace tickwell::print_helper {

namespace {

constexpr int kPoints = 10;
constexpr QChar kColumnMark = u'\t';

/// The distance from the start of the first column to the start of the second.
double SecondColumn(const QStringList& lines, const QFontMetricsF& metrics) {
    double width = 0;
    for (const QString& line : lines) {
        if (line.contains(kColumnMark)) {
            width = std::max(width, metrics.horizontalAdvance(line.section(kColumnMark, 0, 0)));
        }
    }
    return width + metrics.horizontalAdvance(QStringLiteral("  "));
}

}  // namespace

ReportPainter::ReportPainter(QStringList lines) : m_lines(std::move(lines)) {
    QStringList families = GothicSubstitutes();
    families.prepend(kGothicFont);
    m_font.setFamilies(families);
    m_font.setPointSize(kPoints);
}

bool ReportPainter::Paint(QPainter& painter, const QRectF& area, int number) const {
    const QFontMetricsF metrics(m_font, painter.device());
    const double spacing = metrics.lineSpacing();
    // Always at least one line per page; otherwise the report would never end.
    const auto linesPerPage = std::max<qsizetype>(1, static_cast<qsizetype>(area.height() / spacing));
    const qsizetype first = number * linesPerPage;
    const qsizetype end = std::min(first + linesPerPage, m_lines.size());
    const double secondColumn = area.left() + SecondColumn(m_lines.mid(first, end - first), metrics);
    painter.setFont(m_font);
    for (qsizetype line = first; line < end; ++line) {
        const double baseline = area.top() + static_cast<double>(line - first) * spacing + metrics.ascent();
        const qsizetype mark = m_lines[line].indexOf(kColumnMark);
        painter.drawText(QPointF(area.left(), baseline), m_lines[line].left(mark));
        if (mark >= 0) {
            painter.drawText(QPointF(secondColumn, baseline), m_lines[line].sliced(mark + 1));
        }
    }
    return end < m_lines.size();
}

}  // namespace tickwell::print_helper
