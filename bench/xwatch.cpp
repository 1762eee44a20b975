// SPDX-License-Identifier: GPL-3.0-or-later
// xwatch: observes an X display from outside. It reports when a window appears, when it is painted, and how
// often the screen is repainted.
//
//   xwatch start TIMEOUT_MS MIN_WIDTH MIN_HEIGHT
//       READY: from now on no window is missed.
//       MAP time window x y width height override: the first top-level window that is large enough; SMALL
//           with the same fields for each smaller one before it.
//       PAINT time window width height class: its client area has three colours for the first time.
//       TIMEOUT or NOPAINT if that did not happen in time (exit code 1).
//
//   xwatch damage DURATION_MS
//       DAMAGE bursts_per_s rectangles_per_s kilopixels_per_s: repaints of the complete screen.
//
// Times are microseconds of the monotonic clock, which a script on the same machine can read as well.

#include <charconv>
#include <chrono>
#include <cstdio>
#include <optional>
#include <string_view>
#include <vector>

#include "xwatch/screen.h"
#include "xwatch/watches.h"

namespace tickwell {

namespace {

using std::chrono::milliseconds;

/// The complete `text` as a number; nullopt if it is not one.
std::optional<unsigned> Number(std::string_view text) {
    unsigned value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return value;
}

struct Request {
    bool start = false;
    milliseconds duration{0};
    SmallestWindow smallest;
};

std::optional<Request> ReadArguments(const std::vector<std::string_view>& arguments) {
    std::vector<unsigned> numbers;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        const std::optional<unsigned> number = Number(arguments[i]);
        if (!number) {
            return std::nullopt;
        }
        numbers.push_back(*number);
    }
    if (numbers.size() == 3 && arguments[0] == "start") {
        return Request{true, milliseconds(numbers[0]), {numbers[1], numbers[2]}};
    }
    if (numbers.size() == 1 && arguments[0] == "damage") {
        return Request{false, milliseconds(numbers[0]), {}};
    }
    return std::nullopt;
}

}  // namespace

int RunXwatch(const std::vector<std::string_view>& arguments) {
    const std::optional<Request> request = ReadArguments(arguments);
    if (!request) {
        std::fputs("usage: xwatch start TIMEOUT_MS MIN_WIDTH MIN_HEIGHT | xwatch damage DURATION_MS\n",
                   stderr);
        return 2;
    }
    Display* display = XOpenDisplay(nullptr);
    if (display == nullptr) {
        std::fputs("xwatch: cannot open the display\n", stderr);
        return 1;
    }
    Screen screen(display);
    const bool seen = request->start
                          ? WatchStart(screen, request->smallest, MonotonicClock::now() + request->duration)
                          : WatchDamage(screen, request->duration);
    return seen ? 0 : 1;
}

}  // namespace tickwell

int main(int argc, char** argv) {
    // The script at the other end of the pipe waits for each line.
    if (std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ) != 0) {
        return 1;
    }
    return tickwell::RunXwatch({argv + 1, argv + argc});
}
