// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

#include "store/jet/jet_pages.h"

namespace tickwell::store {

/// The page numbers in the usage map in the row `map`, ascending and unique. Throws JetDamageError, also for
/// a page beyond the end of the file.
QList<quint32> PagesInUse(const JetPages& pages, const JetRowAddress& map);

}  // namespace tickwell::store
