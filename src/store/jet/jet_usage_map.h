// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

#include "store/jet/jet_pages.h"

namespace tickwell {

/// The pages that the usage map in the row `map` names, ascending, none twice. Throws JetDamageError, also
/// for a page that the file does not have.
QList<quint32> PagesInUse(const JetPages& pages, const JetRowAddress& map);

}  // namespace tickwell
