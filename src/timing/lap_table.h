// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace tickwell::timing {

// The list of laps and stops as a table for other programs. `list`: the lines of the stopwatch's list,
// separated by CR LF. The first row names the columns: number, kind, reading, the same in milliseconds,
// interval, the same in milliseconds. A stop has neither number nor interval.

/// Columns separated by tabs, rows ended by a line feed.
QString LapsForClipboard(const QString& list);

/// As CSV (RFC 4180) in UTF-8 with a byte order mark.
QByteArray LapsAsCsv(const QString& list);

}  // namespace tickwell::timing
