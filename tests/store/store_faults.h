// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "store/day_store.h"

namespace tickwell {

/// Why opening was refused; empty when it was not.
QString OpeningFault(const QString& path);

/// What start-up is told then: the file's name, and why.
QString Told(const QString& path, const QString& reason);

QByteArray BytesOf(const QString& path);
void SetBytes(const QString& path, const QByteArray& bytes);

/// Stores that many anniversaries, so that the file has pages of every kind.
void Fill(const DayStore& store, int rows);

}  // namespace tickwell
