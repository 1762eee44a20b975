// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QStringList>

namespace tickwell {

/// The stopwatch's report, line by line. `version`: the program's, as "2.0.0". `list`: laps and stops, parted
/// by CR LF; an empty one is one empty line.
QStringList LapReport(const QString& version, const QDateTime& now, const QString& list);

/// "1998年11月15日 日曜日".
QString LongDateText(QDate date);

/// "21:05:07", "9:05:07".
QString LongTimeText(QTime time);

}  // namespace tickwell
