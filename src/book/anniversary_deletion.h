// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <memory>
#include <vector>

#include "book/anniversary_change.h"

namespace tickwell::book {

/// The number of ticked entries: "現在 2項目".
QString TickedText(qsizetype ticked);

/// Deletes the ticked rows of the list. `isTicked`: one per element of `rows`.
std::unique_ptr<AnniversaryChange> DeletionOf(store::DayDatabase& database, days::ListedRows rows,
                                              std::vector<bool> isTicked, const Corrections& corrections);

}  // namespace tickwell::book
