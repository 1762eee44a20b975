// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>
#include <algorithm>

namespace tickwell::store {

/// Whether a character ends a text between double quotes: there is no way to escape it.
constexpr bool EndsText(QChar character) {
    return character == u'"' || character.isNull();
}

/// Whether `text` can be written between double quotes in a statement.
inline bool IsQuotable(QStringView text) {
    return std::none_of(text.begin(), text.end(), EndsText);
}

}  // namespace tickwell::store
