// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "monkey/random.h"

namespace tickwell {

/// Something that nobody thought of when the field was made: empty, endless, in other letters, markup, pieces
/// of statements, numbers that are none, halves of characters.
QString OddText(Random& random);

}  // namespace tickwell
