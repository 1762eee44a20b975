// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>
#include <functional>

namespace tickwell {

/// Watches for windows of other programs that fill a screen. Windows are identified by their window system
/// ids.
class FullScreenWatch {
public:
    virtual ~FullScreenWatch() = default;

    /// `changed` is called from the event loop, once soon after this call and then whenever IsCovered may
    /// have changed; nothing is polled. There is one listener; an empty function removes it, and then nothing
    /// is watched.
    virtual void Listen(std::function<void()> changed) = 0;

    /// Whether another program's full-screen window is shown where `window` is, or would be if it is hidden.
    /// A full-screen window that is iconified, on another workspace, or behind a window that the user works
    /// with there does not count. Does not wait for the window manager.
    virtual bool IsCovered(quintptr window) = 0;
};

}  // namespace tickwell
