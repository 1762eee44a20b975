// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell::platform {

/// Makes malloc return large blocks to the system as soon as they are freed, and use one arena for all
/// threads. Called first of all.
void KeepHeapSmall();

/// Returns memory that closed or hidden windows leave behind: backing stores, Qt's cached pixmaps of
/// controls, and free heap pages. Takes some milliseconds; whatever was dropped is drawn again when needed.
void ReturnFreedMemory();

}  // namespace tickwell::platform
