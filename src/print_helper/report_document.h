// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QMarginsF>
#include <QPagedPaintDevice>
#include <QSizeF>
#include <QString>
#include <QStringList>

namespace tickwell {

/// A sheet of paper, and where on it a printer can print.
struct Paper {
    QSizeF size{210, 297};  ///< mm
    QMarginsF margins;      ///< mm, what the printer leaves blank

    bool operator==(const Paper&) const = default;
};

/// The report's margins on such paper, in mm: 15, or the printer's own if that is wider.
QMarginsF ReportMargins(const Paper& paper);

/// Paints the lines on the pages of a device. Returns false if a page cannot be begun, followed by another,
/// or ended; the device's content is useless then.
bool PaintReport(QPagedPaintDevice& pages, const QStringList& lines);

/// The report as a PDF document; empty if it could not be painted. Needs a QGuiApplication for the fonts.
QByteArray ReportDocument(const Paper& paper, const QString& title, const QStringList& lines);

}  // namespace tickwell
