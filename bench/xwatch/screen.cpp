// SPDX-License-Identifier: GPL-3.0-or-later
#include "xwatch/screen.h"

#include <poll.h>

#include <algorithm>

namespace tickwell {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kLongestWait(100);

struct XFreer {
    void operator()(void* memory) const { XFree(memory); }
};
template <typename Value>
using XOwned = std::unique_ptr<Value, XFreer>;

/// A request for a window that no longer exists fails, which the caller checks; Xlib's default handler would
/// end this program.
int IgnoreError(Display* /*display*/, XErrorEvent* /*error*/) {
    return 0;
}

}  // namespace

Screen::Screen(Display* display)
    : m_display(display),
      m_root(XDefaultRootWindow(display)),
      m_state(XInternAtom(display, "WM_STATE", False)) {
    XSetErrorHandler(IgnoreError);
}

std::optional<XEvent> Screen::NextEvent() {
    if (XPending(Handle()) == 0) {
        return std::nullopt;
    }
    XEvent event{};
    XNextEvent(Handle(), &event);
    return event;
}

void Screen::WaitForEvents(TimePoint end) const {
    const auto left = std::chrono::ceil<milliseconds>(end - MonotonicClock::now());
    pollfd connection{XConnectionNumber(Handle()), POLLIN, 0};
    // Callers check events and time themselves, so the reason for waking up does not matter.
    poll(&connection, 1, static_cast<int>(std::clamp(left, milliseconds(0), kLongestWait).count()));
}

std::optional<Geometry> Screen::GeometryOf(Window window) const {
    Geometry found;
    Window root = 0;
    unsigned border = 0;
    unsigned depth = 0;
    if (XGetGeometry(Handle(), window, &root, &found.x, &found.y, &found.width, &found.height, &border,
                     &depth) == 0) {
        return std::nullopt;
    }
    return found;
}

Window Screen::ClientOf(Window window) const {
    std::vector<Window> waiting{window};
    while (!waiting.empty()) {
        const Window candidate = waiting.back();
        waiting.pop_back();
        if (HasState(candidate)) {
            return candidate;
        }
        const std::vector<Window> children = ChildrenOf(candidate);
        waiting.insert(waiting.end(), children.begin(), children.end());
    }
    return window;
}

Picture Screen::PictureOf(Window window) const {
    XWindowAttributes attributes{};
    if (XGetWindowAttributes(Handle(), window, &attributes) == 0 || attributes.map_state != IsViewable) {
        return nullptr;
    }
    int x = 0;
    int y = 0;
    Window child = 0;
    if (XTranslateCoordinates(Handle(), window, m_root, 0, 0, &x, &y, &child) == 0) {
        return nullptr;
    }
    const int screen = XDefaultScreen(Handle());
    const int left = std::max(x, 0);
    const int top = std::max(y, 0);
    const int right = std::min(x + attributes.width, XDisplayWidth(Handle(), screen));
    const int bottom = std::min(y + attributes.height, XDisplayHeight(Handle(), screen));
    if (right <= left || bottom <= top) {
        return nullptr;
    }
    return Picture(XGetImage(Handle(), m_root, left, top, static_cast<unsigned>(right - left),
                             static_cast<unsigned>(bottom - top), XAllPlanes(), ZPixmap));
}

std::string Screen::ClassOf(Window window) const {
    XClassHint hint{};
    if (XGetClassHint(Handle(), window, &hint) == 0) {
        return "-";
    }
    const XOwned<char> name(hint.res_name);
    const XOwned<char> className(hint.res_class);
    return className ? className.get() : "-";
}

bool Screen::HasState(Window window) const {
    Atom type = 0;
    int format = 0;
    unsigned long items = 0;
    unsigned long left = 0;
    unsigned char* data = nullptr;
    const int answer = XGetWindowProperty(Handle(), window, m_state, 0, 2, False, AnyPropertyType, &type,
                                          &format, &items, &left, &data);
    const XOwned<unsigned char> owned(data);
    return answer == Success && type != 0;
}

std::vector<Window> Screen::ChildrenOf(Window window) const {
    Window root = 0;
    Window parent = 0;
    Window* children = nullptr;
    unsigned count = 0;
    if (XQueryTree(Handle(), window, &root, &parent, &children, &count) == 0) {
        return {};
    }
    const XOwned<Window> owned(children);
    return {children, children + count};
}

}  // namespace tickwell
