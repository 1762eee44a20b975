// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <xcb/xcb.h>

namespace tickwell::platform {

/// Declares whether a window of this program accepts the keyboard focus (ICCCM 4.1.7): the input hint of
/// WM_HINTS, and WM_TAKE_FOCUS in WM_PROTOCOLS. Leaves everything else in both properties unchanged. Does not
/// flush the connection.
void DeclareAcceptsFocus(xcb_connection_t* server, xcb_window_t window, bool accepts);

}  // namespace tickwell::platform
