// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QStringList>

namespace tickwell::timing {

/// The stopwatch's report, line by line. `version`: of the program, like "2.0.0". `list`: laps and stops,
/// separated by CR LF; an empty one results in one empty line. The intervals of the laps are a second column.
QStringList LapReport(const QString& version, const QDateTime& now, const QString& list);

/// "1998年11月15日 日曜日".
QString LongDateText(QDate date);

/// "21:05:07", "9:05:07".
QString LongTimeText(QTime time);

}  // namespace tickwell::timing
