# SPDX-License-Identifier: GPL-3.0-or-later
"""The two watches of the xwatch program: when a window appears, and how often the screen is repainted."""

import subprocess
from dataclasses import dataclass

from .desktop import HELPER
from .errors import MeasuringError

_SECONDS_BEYOND = 10.0  # for xwatch to start and to end


@dataclass(frozen=True)
class FirstWindow:
    """A program's first window. Times are seconds of the monotonic clock."""

    mapped_at: float
    painted_at: float
    size: str  # "WIDTHxHEIGHT" of the client area, in pixels
    window_class: str


@dataclass(frozen=True)
class Repaints:
    """Repaints of the screen as a whole, per second."""

    repaints_per_s: float  # frames: repaints in quick succession count once
    rectangles_per_s: float
    kilopixels_per_s: float


class StartWatch:
    """Watches for the first window of programs that are started after it was created."""

    def __init__(self, desktop, xwatch, smallest, seconds):
        """`smallest`: (width, height) of the smallest window that counts; `seconds`: time limit."""
        self._seconds = seconds
        self._process = desktop.start(
            HELPER, [str(xwatch), "start", str(int(seconds * 1000)), *map(str, smallest)],
            stdout=subprocess.PIPE, text=True)
        if self._process.stdout.readline().strip() != "READY":
            raise MeasuringError(f"xwatch did not start: {desktop.last_words(HELPER)}")

    def wait(self):
        """Waits until the first window is painted; returns it."""
        printed = self._process.stdout.read()  # xwatch ends itself within the time limit
        lines = {words[0]: words[1:] for words in map(str.split, printed.splitlines()) if words}
        if "MAP" not in lines:
            raise MeasuringError(f"no window came within {self._seconds:g} s")
        if "PAINT" not in lines:
            raise MeasuringError(f"the window was not painted within {self._seconds:g} s")
        painted_at, _, width, height, *class_words = lines["PAINT"]
        return FirstWindow(mapped_at=int(lines["MAP"][0]) / 1e6, painted_at=int(painted_at) / 1e6,
                           size=f"{width}x{height}", window_class=" ".join(class_words))


class RepaintWatch:
    """Counts repaints of a desktop's screen from its construction on."""

    def __init__(self, desktop, xwatch, seconds):
        self._seconds = seconds
        self._process = desktop.start(HELPER, [str(xwatch), "damage", str(int(seconds * 1000))],
                                      stdout=subprocess.PIPE, text=True)

    def wait(self):
        """Waits until the time has passed; returns the repaints."""
        try:
            printed, _ = self._process.communicate(timeout=self._seconds + _SECONDS_BEYOND)
        except subprocess.TimeoutExpired as error:
            raise MeasuringError("xwatch did not end") from error
        word, *numbers = printed.split() or [""]
        if word != "DAMAGE" or len(numbers) != 3:
            raise MeasuringError(f"xwatch printed: {printed}")
        return Repaints(*map(float, numbers))
