// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRectF>
#include <QString>
#include <functional>

class QPainter;

namespace tickwell {

/// A document for the printer.
struct PrintJob {
    QString title;  ///< what the print queue calls it

    /// Paints page `number`, counted from 0, into `area`, given in the painter's units; true when another
    /// page follows.
    std::function<bool(QPainter& painter, const QRectF& area, int number)> paintPage;
};

/// The user's default printer.
class Printer {
public:
    virtual ~Printer() = default;

    /// Prints the document whole and hands it to the print queue. Throws RunTimeError when there is no
    /// printer, or it does not take the document.
    virtual void Print(const PrintJob& job) = 0;
};

}  // namespace tickwell
