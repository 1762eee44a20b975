// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell::platform {

/// Makes Qt send painted pixels over its connection to the X server instead of through shared memory, unless
/// the user's QT_XCB_NO_MITSHM decides. Before it paints into shared memory again, Qt waits for the server,
/// which wakes two threads; what this program repaints all the time is small enough to be sent. To be called
/// before the application object is constructed; programs that are started later must not inherit the
/// variable.
void PaintWithoutSharedMemory();

}  // namespace tickwell::platform
