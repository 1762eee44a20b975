// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>

namespace tickwell {

/// The titles of a disc and of its tracks as packs of 18 bytes, as a pressed disc has them in its lead-in.
/// `isShiftJis`: whether the disc says that they are in Japanese (MS-JIS), otherwise in English (Latin-1).
QByteArray CdTextPacks(const QList<QByteArray>& titles, bool isShiftJis);

}  // namespace tickwell
