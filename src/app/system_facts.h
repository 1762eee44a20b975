// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/about_text.h"

namespace tickwell {

/// The facts of this machine and this session. Needs a QApplication. Nothing in them names the user, the
/// machine or a folder.
SystemFacts FactsOfThisMachine();

}  // namespace tickwell
