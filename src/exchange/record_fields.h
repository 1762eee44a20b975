// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QDate>
#include <optional>

namespace tickwell::exchange {

/// "20260310"; `date` is valid, of a year from 1 to 9999.
QByteArray CompactDate(QDate date);

/// The date of exactly such a text; invalid otherwise.
QDate DateFrom(const QByteArray& text);

/// A decimal number from `least` to `most`; nullopt for anything else.
std::optional<int> NumberFrom(const QByteArray& text, int least, int most);

/// The items of a list separated by commas; none for an empty text.
QByteArrayList ListItems(const QByteArray& text);

}  // namespace tickwell::exchange
