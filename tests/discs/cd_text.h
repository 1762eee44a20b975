// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>

namespace tickwell {

/// The titles of a disc and of its tracks as CD-TEXT packs of 18 bytes, as in the lead-in of a pressed disc.
/// `isShiftJis`: whether the disc declares them as Japanese (MS-JIS); otherwise as English (Latin-1).
QByteArray CdTextPacks(const QList<QByteArray>& titles, bool isShiftJis);

}  // namespace tickwell
