# SPDX-License-Identifier: GPL-3.0-or-later
"""A private Wayland desktop: sway without a monitor, with XWayland for the program under test."""

import json
import subprocess
from typing import NamedTuple

from PIL import Image

from driver.desktop import Session
from driver.waiting import PATIENCE
from driver.wayland_hand import WaylandHand

SIZE = (1280, 800)
CONFIGURATION = """
output HEADLESS-1 resolution {width}x{height} position 0 0 bg #335577 solid_color
seat seat0 fallback true
{rules}
exec sh -c 'echo "$WAYLAND_DISPLAY $DISPLAY" >&{pipe}'
"""
# sway refuses to run as root, so it runs as an ordinary user of a namespace of its own.
AS_A_USER = ("unshare", "--user", "--map-user=1000", "--map-group=1000")


class SwayWindow(NamedTuple):
    """A window as reported by sway; its position in pixels of the screen."""
    name: str
    area: tuple
    is_focused: bool
    is_sticky: bool


class SwaySession(Session):
    def __init__(self, rules="", size=SIZE, environment=None):
        """`rules`: lines for sway's configuration. `size`: of the screen, in pixels."""
        self._rules, self._size = rules, size
        headless = {"WLR_BACKENDS": "headless", "WLR_RENDERER": "pixman", "WLR_LIBINPUT_NO_DEVICES": "1"}
        super().__init__(window_manager=None, environment=headless | (environment or {}))

    def sway_windows(self):
        """The windows of programs, by name."""
        return {each.name: each for each in _windows_in(self._tree())}

    def grab(self, area=None):
        path = self.directory / "screen.png"
        self._call("grim", path)
        with Image.open(path) as picture:
            return picture.convert("RGB").crop(_corners(area or (0, 0, *self._size)))

    def press_key(self, window, key):
        """Focuses the window with this title and presses a key, given by its X name."""
        self._call("swaymsg", f'[title="^{window}$"] focus')
        self.press(key)

    def press(self, key):
        """Presses a key, given by its X name, in the focused window."""
        self._call("wtype", "-k", key)

    def _open_screen(self, closing, screen, dpi):
        configuration = self.directory / "sway.conf"

        def command(pipe):
            width, height = self._size
            configuration.write_text(CONFIGURATION.format(width=width, height=height, rules=self._rules, pipe=pipe),
                                     encoding="utf-8")
            return [*AS_A_USER, "sway", "--config", configuration]
        wayland, display = self._announced(closing, command).split()
        run = self.directory / "run"
        self._client = {"WAYLAND_DISPLAY": wayland, "SWAYSOCK": str(next(run.glob("sway-ipc.*.sock")))}
        return display

    def _make_hand(self, closing):
        hand = WaylandHand(self.directory / "run" / self._client["WAYLAND_DISPLAY"], self._size)
        closing.callback(hand.close)
        return hand

    def _tree(self):
        return json.loads(self._call("swaymsg", "--raw", "--type", "get_tree"))

    def _call(self, *words):
        return subprocess.run(words, env=self.environment | self._client, capture_output=True, check=True,
                              timeout=PATIENCE).stdout


def _windows_in(node):
    if node["type"] in ("con", "floating_con") and node["name"]:
        area = tuple(node["rect"][key] for key in ("x", "y", "width", "height"))
        yield SwayWindow(node["name"], area, node["focused"], node["sticky"])
    for child in node["nodes"] + node["floating_nodes"]:
        yield from _windows_in(child)


def _corners(area):
    x, y, width, height = area
    return x, y, x + width, y + height
