// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell::shell {

/// Makes the main window and its lines known to screen readers. Once a process, before the window.
void InstallMainWindowAccessibility();

}  // namespace tickwell::shell
