// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell {

/// Lets this process give large blocks back to the system as soon as they are freed, and keeps its few
/// threads from having heaps of their own. Called before anything else is done.
void KeepHeapSmall();

/// Gives back what windows leave behind when they go or are hidden: their pictures, the toolkit's drawn parts
/// of controls, and whole pages that were freed among others still in use. Takes milliseconds, and what was
/// dropped is drawn again when it is needed.
void ReturnFreedMemory();

}  // namespace tickwell
