// SPDX-License-Identifier: GPL-3.0-or-later
// x_window: the minimum cost of a window without Qt or another toolkit: two lines of text in the X server's
// own font, painted when exposed, and nothing else.

#include <X11/Xlib.h>

#include <cstdio>
#include <memory>
#include <string_view>

namespace tickwell {

namespace {

constexpr unsigned kWidth = 167;
constexpr unsigned kHeight = 40;
constexpr int kLeft = 4;
constexpr int kUpperBase = 15;
constexpr int kLowerBase = 33;
constexpr unsigned long kWhite = 0xFFFFFF;
constexpr unsigned long kGreen = 0x00FF00;

struct DisplayCloser {
    void operator()(Display* display) const { XCloseDisplay(display); }
};

void DrawLine(Display* display, Window window, unsigned long colour, int base, std::string_view text) {
    GC context = XDefaultGC(display, XDefaultScreen(display));
    XSetForeground(display, context, colour);
    XDrawString(display, window, context, kLeft, base, text.data(), static_cast<int>(text.size()));
}

}  // namespace

int RunXWindow() {
    const std::unique_ptr<Display, DisplayCloser> display(XOpenDisplay(nullptr));
    if (!display) {
        std::fputs("x_window: cannot open the display\n", stderr);
        return 1;
    }
    const Window window =
        XCreateSimpleWindow(display.get(), XDefaultRootWindow(display.get()), 0, 0, kWidth, kHeight, 0, 0, 0);
    XSelectInput(display.get(), window, ExposureMask);
    XMapWindow(display.get(), window);
    for (XEvent event{};;) {
        XNextEvent(display.get(), &event);
        if (event.type == Expose) {
            DrawLine(display.get(), window, kWhite, kUpperBase, "2026-11-20");
            DrawLine(display.get(), window, kGreen, kLowerBase, "21:04:55");
        }
    }
}

}  // namespace tickwell

int main() {
    return tickwell::RunXWindow();
}
