// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <atomic>

#include "exchange/entry.h"

namespace tickwell::exchange {

/// The beginning of a CSV file of anniversaries: byte order mark and the names of the columns
/// 「記念日,年,月,日,第何週,曜日」. An empty year or month means each one.
QByteArray TableHead();

/// A line of it, with CR LF at its end.
QByteArray TableLine(const days::Anniversary& row);

/// Appends that line; false, without a change, if the anniversary falls on no day.
bool AddTableLine(const days::Anniversary& row, QByteArray& table);

/// Reads such a file, in UTF-8 or Shift_JIS, with or without byte order mark and the names of the columns. A
/// line that is no anniversary is a refused entry. Throws RunTimeError if the file as a whole cannot be read.
/// Returns early once `isGivenUp` is true.
Offer ReadTable(const QByteArray& file, const std::atomic<bool>& isGivenUp);

}  // namespace tickwell::exchange
