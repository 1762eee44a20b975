// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <variant>

namespace tickwell::store {

/// A value as SQLite stores it: dates as ISO text, so that comparing the texts compares the dates.
using BoundValue = std::variant<qint32, QString>;

}  // namespace tickwell::store
