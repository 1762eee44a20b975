// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include "store/jet/day_rows.h"

namespace tickwell {

/// The file `name` of tests/data/jet. Ends the test run where it is missing.
QByteArray JetSample(const QString& name);

/// The rows as the expected*.tsv have them: the table and its values, \n and \\ escaped.
QByteArray AsTsv(const DayRows& rows);

/// What ReadDayRows reads of a whole file.
DayRows RowsOf(const QByteArray& file);

/// The reason for which reading `file` is refused; empty when it is not.
QString Refusal(const QByteArray& file);

}  // namespace tickwell
