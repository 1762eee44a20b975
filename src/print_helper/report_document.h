// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QMarginsF>
#include <QPagedPaintDevice>
#include <QSizeF>
#include <QString>
#include <QStringList>

namespace tickwell::print_helper {

/// A paper size and the printable area on it.
struct Paper {
    QSizeF size{210, 297};  ///< mm
    QMarginsF margins;      ///< mm, unprintable margins

    bool operator==(const Paper&) const = default;
};

/// The margins of the report on such paper, in mm: 15, or the printer's own if they are wider.
QMarginsF ReportMargins(const Paper& paper);

/// Paints the lines on the pages of a device. Returns false if a page cannot be started or finished; the
/// device's content is then unusable.
bool PaintReport(QPagedPaintDevice& pages, const QStringList& lines);

/// The report as a PDF document; empty if it could not be painted. Needs a QGuiApplication for fonts.
QByteArray ReportDocument(const Paper& paper, const QString& title, const QStringList& lines);

}  // namespace tickwell::print_helper
