// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <memory>
#include <vector>

#include "book/anniversary_change.h"

namespace tickwell {

/// How many entries are ticked: "現在 2項目".
QString TickedText(qsizetype ticked);

/// Takes the ticked rows of the list out of the book. `isTicked`: one for each of `rows`.
std::unique_ptr<AnniversaryChange> DeletionOf(std::unique_ptr<DayDatabase>& database, ListedRows rows,
                                              std::vector<bool> isTicked);

}  // namespace tickwell
