// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "book/anniversary_change.h"

namespace tickwell::book {

/// The result of editing a row.
struct Edit {
    days::Anniversary entered;
    bool isRenamed = false;  ///< the user changed the name; if not, a name that no statement can
                             ///< contain keeps its stored value
};

/// Changes the chosen row of the list. `database` outlives the work. Throws RunTimeError if the list row
/// cannot be parsed or a statement cannot contain the entered values.
std::unique_ptr<AnniversaryChange> EditOf(store::DayDatabase& database, const days::DayListRow& chosen,
                                          const Edit& edit, const Corrections& corrections);

}  // namespace tickwell::book
