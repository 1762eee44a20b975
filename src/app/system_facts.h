// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/about_text.h"

namespace tickwell::app {

/// The facts of this machine and session. Needs a QApplication. Contains no name of the user, the machine or
/// a folder.
SystemFacts FactsOfThisMachine();

}  // namespace tickwell::app
