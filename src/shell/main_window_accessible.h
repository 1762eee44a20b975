// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell::shell {

/// Makes the main window and its lines accessible to screen readers. Called once per process, before the
/// window is created.
void InstallMainWindowAccessibility();

}  // namespace tickwell::shell
