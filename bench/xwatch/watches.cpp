// SPDX-License-Identifier: GPL-3.0-or-later
#include "xwatch/watches.h"

#include <X11/extensions/Xdamage.h>
#include <poll.h>

#include <cstdio>
#include <cstring>
#include <set>

namespace tickwell {

namespace {

using std::chrono::milliseconds;

constexpr std::size_t kPaintedColours = 3;  // a background, and text that is antialiased or has two colours
constexpr milliseconds kPaintPoll(3);
constexpr milliseconds kBurstGap(8);  // repaints closer together belong to one frame
constexpr milliseconds kInitialReport(100);

long long Microseconds(TimePoint time) {
    return std::chrono::duration_cast<std::chrono::microseconds>(time.time_since_epoch()).count();
}

/// Whether the picture has as many colours as a window with text.
bool IsPainted(XImage& picture) {
    std::set<unsigned long> colours;
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            colours.insert(XGetPixel(&picture, x, y));
            if (colours.size() == kPaintedColours) {
                return true;
            }
        }
    }
    return false;
}

/// Reports the first window that is large enough, and the smaller ones before it.
class StartWatch {
public:
    /// `end`: the time at which to give up.
    StartWatch(Screen& screen, SmallestWindow smallest, TimePoint end)
        : m_screen(screen), m_smallest(smallest), m_end(end) {}

    bool Run() {
        XSelectInput(m_screen.Handle(), m_screen.Root(), SubstructureNotifyMask);
        XSync(m_screen.Handle(), False);
        std::puts("READY");
        const std::optional<Window> top = FirstWindow();
        if (!top) {
            std::puts("TIMEOUT");
            return false;
        }
        if (!WaitForPaint(*top)) {
            std::puts("NOPAINT");
            return false;
        }
        return true;
    }

private:
    std::optional<Window> FirstWindow() {
        while (MonotonicClock::now() < m_end) {
            while (const auto event = m_screen.NextEvent()) {
                const std::optional<Window> candidate = Candidate(*event);
                if (candidate &&
                    IsLargeEnough(*candidate, event->type == MapNotify && event->xmap.override_redirect)) {
                    return candidate;
                }
            }
            m_screen.WaitForEvents(m_end);
        }
        return std::nullopt;
    }

    /// The window of `event` if it qualifies: just mapped, or mapped too small and now resized.
    std::optional<Window> Candidate(const XEvent& event) const {
        if (event.type == MapNotify && event.xmap.event == m_screen.Root()) {
            return event.xmap.window;
        }
        if (event.type == ConfigureNotify && m_small.count(event.xconfigure.window) > 0) {
            return event.xconfigure.window;
        }
        return std::nullopt;
    }

    bool IsLargeEnough(Window window, bool overrideRedirect) {
        const TimePoint seen = MonotonicClock::now();
        const std::optional<Geometry> geometry = m_screen.GeometryOf(window);
        if (!geometry) {
            return false;
        }
        const bool large = geometry->width >= m_smallest.width && geometry->height >= m_smallest.height;
        std::printf("%s %lld 0x%lx %d %d %u %u %d\n", large ? "MAP" : "SMALL", Microseconds(seen), window,
                    geometry->x, geometry->y, geometry->width, geometry->height, overrideRedirect ? 1 : 0);
        if (!large) {
            m_small.insert(window);
        }
        return large;
    }

    bool WaitForPaint(Window top) const {
        while (MonotonicClock::now() < m_end) {
            const Window client = m_screen.ClientOf(top);
            const auto picture = m_screen.PictureOf(client);
            if (picture && IsPainted(*picture)) {
                const TimePoint seen = MonotonicClock::now();
                const Geometry geometry = m_screen.GeometryOf(client).value_or(Geometry());
                std::printf("PAINT %lld 0x%lx %u %u %s\n", Microseconds(seen), client, geometry.width,
                            geometry.height, m_screen.ClassOf(client).c_str());
                return true;
            }
            poll(nullptr, 0, static_cast<int>(kPaintPoll.count()));
        }
        return false;
    }

    Screen& m_screen;
    SmallestWindow m_smallest;
    TimePoint m_end;
    std::set<Window> m_small;
};

}  // namespace

bool WatchStart(Screen& screen, SmallestWindow smallest, TimePoint end) {
    return StartWatch(screen, smallest, end).Run();
}

bool WatchDamage(Screen& screen, milliseconds duration) {
    int firstEvent = 0;
    int firstError = 0;
    if (XDamageQueryExtension(screen.Handle(), &firstEvent, &firstError) == 0) {
        std::fputs("xwatch: this display does not report damage\n", stderr);
        return false;
    }
    XDamageCreate(screen.Handle(), screen.Root(), XDamageReportRawRectangles);
    XSync(screen.Handle(), False);
    poll(nullptr, 0, static_cast<int>(kInitialReport.count()));
    while (screen.NextEvent()) {  // drops the initial report of the complete screen
    }
    const TimePoint begin = MonotonicClock::now();
    const TimePoint end = begin + duration;
    std::optional<TimePoint> last;
    long rectangles = 0;
    long bursts = 0;
    double pixels = 0;
    while (MonotonicClock::now() < end) {
        while (const auto event = screen.NextEvent()) {
            if (event->type != firstEvent + XDamageNotify) {
                continue;
            }
            XDamageNotifyEvent damage{};
            std::memcpy(&damage, &*event, sizeof damage);
            const TimePoint now = MonotonicClock::now();
            bursts += !last || now - *last > kBurstGap ? 1 : 0;
            last = now;
            ++rectangles;
            pixels += static_cast<double>(damage.area.width) * damage.area.height;
        }
        screen.WaitForEvents(end);
    }
    const double seconds = std::chrono::duration<double>(MonotonicClock::now() - begin).count();
    std::printf("DAMAGE %.3f %.3f %.3f\n", static_cast<double>(bursts) / seconds,
                static_cast<double>(rectangles) / seconds, pixels / 1000 / seconds);
    return true;
}

}  // namespace tickwell
