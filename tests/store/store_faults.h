// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "store/day_store.h"

namespace tickwell::store {

/// The reason for which opening fails; empty if it succeeds.
QString OpeningFault(const QString& path);

/// The resulting message at start-up: the file's name and the reason.
QString Told(const QString& path, const QString& reason);

QByteArray BytesOf(const QString& path);
void SetBytes(const QString& path, const QByteArray& bytes);

/// Stores `rows` anniversaries; with enough of them the file contains pages of every kind.
void Fill(const DayStore& store, int rows);

}  // namespace tickwell::store
