// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "monkey/random.h"

namespace tickwell {

/// A text for which a field was not made: empty, very long, in other scripts, markup, fragments of SQL,
/// malformed numbers, lone surrogates.
QString OddText(Random& random);

}  // namespace tickwell
