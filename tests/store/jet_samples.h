// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include "store/jet/day_rows.h"

namespace tickwell::store {

/// The file `name` of tests/data/jet. Ends the test run if it is missing.
QByteArray JetSample(const QString& name);

/// The rows formatted like the expected*.tsv files: the table and its values, \n and \\ escaped.
QByteArray AsTsv(const DayRows& rows);

/// The result of ReadDayRows for a complete file.
DayRows RowsOf(const QByteArray& file);

/// The reason for which reading `file` fails; empty if it succeeds.
QString Refusal(const QByteArray& file);

}  // namespace tickwell::store
