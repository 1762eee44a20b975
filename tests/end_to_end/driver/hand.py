# SPDX-License-Identifier: GPL-3.0-or-later
"""Mouse and keyboard input, injected into the X server like input from real devices."""

import subprocess

from driver.waiting import PATIENCE, steady

DRAG_STEPS = 8  # a drag in one step cannot be distinguished from a click elsewhere
DRAG_PACE = 0.02  # s per step, like a quick user; the window manager may take over the move during the drag
DOUBLE_CLICK_PACE = 60  # ms
SETTLING = 0.05  # s
HOLDING = 0.3  # s
LEFT, MIDDLE, RIGHT, WHEEL_UP, WHEEL_DOWN = 1, 2, 3, 4, 5


class Hand:
    """The session's pointer and keyboard. A target is a node, which means its centre, or a point (x, y)."""

    def __init__(self, environment):
        self._environment = environment

    def move(self, target):
        self._do(*_move(point_of(target)))

    def click(self, target, button=LEFT, times=1):
        self._do(*_move(point_of(target)), "click", "--repeat", times, "--delay", DOUBLE_CLICK_PACE, button)

    def press(self, target, button=LEFT):
        self._do(*_move(point_of(target)), "mousedown", button)

    def release(self, target, button=LEFT):
        self._do(*_move(point_of(target)), "mouseup", button)

    def wheel(self, target, notches):
        """Turns the wheel over the target; positive is down."""
        self.click(target, WHEEL_DOWN if notches > 0 else WHEEL_UP, abs(notches))

    def drag(self, start, end, button=LEFT):
        (x0, y0), (x1, y1) = point_of(start), point_of(end)
        steps = [(x0 + (x1 - x0) * step // DRAG_STEPS, y0 + (y1 - y0) * step // DRAG_STEPS)
                 for step in range(1, DRAG_STEPS + 1)]
        moves = [word for step in steps for word in (*_move(step), "sleep", DRAG_PACE)]
        self._do(*_move((x0, y0)), "mousedown", button, *moves, "mouseup", button)

    def key(self, *keys):
        """Presses keys or key combinations by X name: "Return", "alt+F4", "ctrl+a"."""
        self._do("key", "--clearmodifiers", *keys)

    def hold(self, modifier, key):
        """Presses a key while holding a modifier, for as long as a user would."""
        self._do("keydown", modifier, "sleep", HOLDING, "key", key, "sleep", HOLDING, "keyup", modifier)

    def type(self, text):
        """Types a text key by key into the focused widget."""
        self._do("type", "--clearmodifiers", "--", text)

    def _do(self, *words):
        command = ["xdotool", *map(str, words)]
        result = subprocess.run(command, env=self._environment, capture_output=True, text=True,
                                timeout=PATIENCE, check=False)
        if result.returncode or result.stderr:  # it reports some failures but exits with 0
            raise RuntimeError(f"{' '.join(command)}: {result.returncode} {result.stderr}")


def point_of(target):
    if isinstance(target, tuple):
        return target
    x, y, width, height = settled_extents(target)
    return x + width // 2, y + height // 2


def settled_extents(node):
    """The extents of a node once they are stable: the window manager decorates and moves a new window a little after it
    appears, and a click at its first position would miss."""
    return steady(lambda: node.extents, f"the place of {node}", rest=SETTLING)


def _move(point):
    return "mousemove", *point  # xdotool's --sync would block if the pointer is already there
