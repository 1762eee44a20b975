// SPDX-License-Identifier: GPL-3.0-or-later
#include "print_helper/report_painter.h"

#include <QFontMetricsF>
#include <algorithm>

#include "core/font_names.h"

namespace tickwell::print_helper {

namespace {

constexpr int kPoints = 10;

}  // namespace

ReportPainter::ReportPainter(QStringList lines) : m_lines(std::move(lines)) {
    m_font.setFamilies(QStringList(kGothicFont) + GothicSubstitutes());
    m_font.setPointSize(kPoints);
}

bool ReportPainter::Paint(QPainter& painter, const QRectF& area, int number) const {
    const QFontMetricsF metrics(m_font, painter.device());
    const double spacing = metrics.lineSpacing();
    // Always at least one line per page; otherwise the report would never end.
    const auto linesPerPage = std::max<qsizetype>(1, static_cast<qsizetype>(area.height() / spacing));
    const qsizetype first = number * linesPerPage;
    const qsizetype end = std::min(first + linesPerPage, m_lines.size());
    painter.setFont(m_font);
    for (qsizetype line = first; line < end; ++line) {
        const double baseline = area.top() + static_cast<double>(line - first) * spacing + metrics.ascent();
        painter.drawText(QPointF(area.left(), baseline), m_lines[line]);
    }
    return end < m_lines.size();
}

}  // namespace tickwell::print_helper
