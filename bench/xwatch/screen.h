// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tickwell {

using MonotonicClock = std::chrono::steady_clock;  // CLOCK_MONOTONIC here
using TimePoint = MonotonicClock::time_point;

struct Geometry {
    int x = 0;
    int y = 0;
    unsigned width = 0;
    unsigned height = 0;
};

struct DisplayCloser {
    void operator()(Display* display) const { XCloseDisplay(display); }
};
struct ImageDestroyer {
    void operator()(XImage* image) const { XDestroyImage(image); }
};
using Picture = std::unique_ptr<XImage, ImageDestroyer>;

/// A connection to an X display, and what can be observed there from outside. A window can be destroyed at
/// any moment; queries then return an empty result. At most one Screen per process, because Xlib has one
/// error handler.
class Screen {
public:
    /// `display`: open; ownership is taken.
    explicit Screen(Display* display);

    Display* Handle() const { return m_display.get(); }
    Window Root() const { return m_root; }

    /// The next queued event; nullopt if there is none.
    std::optional<XEvent> NextEvent();

    /// Sleeps until the server sends something, until `end`, or for a tenth of a second, whichever comes
    /// first.
    void WaitForEvents(TimePoint end) const;

    std::optional<Geometry> GeometryOf(Window window) const;

    /// The program's own window at or below the window manager's frame `window`: the one with WM_STATE.
    /// `window` itself if there is none, as with unmanaged windows.
    Window ClientOf(Window window) const;

    /// The on-screen part of `window`, as it is displayed; null if it is not visible.
    Picture PictureOf(Window window) const;

    /// The class in WM_CLASS; "-" if the window has none.
    std::string ClassOf(Window window) const;

private:
    bool HasState(Window window) const;
    std::vector<Window> ChildrenOf(Window window) const;

    std::unique_ptr<Display, DisplayCloser> m_display;
    Window m_root;
    Atom m_state;
};

}  // namespace tickwell
