// SPDX-License-Identifier: GPL-3.0-or-later
#include "print_helper/report_document.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>

#include "print_helper/report_painter.h"

namespace tickwell::print_helper {

using namespace Qt::StringLiterals;

namespace {

constexpr double kLeastMargin =
    15;  // mm, room for punched holes and for printers that do not report their margins
constexpr int kResolution = 1200;  // dpi

}  // namespace

QMarginsF ReportMargins(const Paper& paper) {
    const QMarginsF least(kLeastMargin, kLeastMargin, kLeastMargin, kLeastMargin);
    return paper.margins | least;  // the wider margin on each side
}

bool PaintReport(QPagedPaintDevice& pages, const QStringList& lines) {
    const ReportPainter report(lines);
    QPainter painter;
    if (!painter.begin(&pages)) {
        return false;
    }
    const QRectF area(0, 0, pages.width(), pages.height());
    for (int number = 0; report.Paint(painter, area, number); ++number) {
        if (!pages.newPage()) {
            return false;
        }
    }
    return painter.end();
}

QByteArray ReportDocument(const Paper& paper, const QString& title, const QStringList& lines) {
    QByteArray document;
    QBuffer buffer(&document);
    if (!buffer.open(QIODevice::WriteOnly)) {
        return {};
    }
    QPdfWriter pages(&buffer);
    pages.setTitle(title);
    pages.setCreator(u"Tickwell"_s);
    pages.setResolution(kResolution);
    const QPageSize size(paper.size, QPageSize::Millimeter, QString(), QPageSize::FuzzyMatch);
    const QPageLayout layout(size, QPageLayout::Portrait, ReportMargins(paper), QPageLayout::Millimeter);
    const bool isPainted = pages.setPageLayout(layout) && PaintReport(pages, lines);
    return isPainted ? document : QByteArray();
}

}  // namespace tickwell::print_helper
