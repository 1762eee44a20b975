// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <atomic>

#include "exchange/entry.h"

namespace tickwell::exchange {

/// Reads the birthdays of a vCard file, version 3 or 4: 「山田太郎の誕生日」 every year. A contact whose
/// birthday cannot be read is a refused entry; one without a birthday is only counted. Throws RunTimeError if
/// the file as a whole cannot be read. Returns early once `isGivenUp` is true.
Offer ReadContacts(const QByteArray& file, const std::atomic<bool>& isGivenUp);

}  // namespace tickwell::exchange
