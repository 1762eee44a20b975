# SPDX-License-Identifier: GPL-3.0-or-later
"""The clock in a Wayland session of sway, through XWayland: focus, position, width, and the rules given in the help."""

import html
import re
import shutil
import unittest

from driver.case import TickwellCase
from driver.sway_session import SwaySession
from driver.tickwell import program_path, start_tickwell, tickwell_command, wait_lines
from driver.tool_windows import MENU
from driver.virtual_time import VirtualTime
from driver.waiting import steady, wait_for

START_UP_DELAY = 11000  # ms
CLOCK = "Tickwell"
HEIGHT = 40  # pixels, with the default fonts
LOWEST = 50  # pixels; sway's default minimum height of a window


def rules_of_the_help():
    """The lines that the help recommends for sway's configuration."""
    text = (program_path().parent / "Help.hlp").read_text(encoding="utf-8")
    rules = re.findall(r"<code>((?:for_window|floating_minimum_size|focus_on_window_activation) [^<]*)</code>", text)
    assert len(rules) == 3, rules
    return html.unescape("\n".join(rules))


class SwayCase(TickwellCase):
    rules = ""

    def make_session(self):
        return SwaySession(self.rules)

    def start(self):
        self.session.spawn(["xmessage", "-name", "rival", "rival"])
        wait_for(lambda: self.window("rival") and self.window("rival").is_focused, "the rival focused")
        self.time = VirtualTime("1998-11-15T21:05:07")
        self.addCleanup(self.time.close)
        self.app = start_tickwell(self.session, virtual_time=self.time)
        wait_lines(self.app, upper="Tickwell Ver.2")
        wait_for(self.window, "the clock in sway's tree")
        return steady(lambda: self.window().area, "the clock's place")

    def window(self, name=CLOCK):
        return self.session.sway_windows().get(name)

    def drag(self, start, way):
        self.session.hand.drag(start, (start[0] + way[0], start[1] + way[1]))
        return steady(lambda: self.window().area, "the clock's place")


@unittest.skipUnless(shutil.which("sway"), "sway is not installed")
class Plain(SwayCase):
    def test_it_leaves_the_focus_at_the_start(self):
        self.start()
        self.time.advance(START_UP_DELAY)
        wait_lines(self.app, lower="午後9時05分18秒")
        self.assertTrue(self.window("rival").is_focused)
        self.session.hand.click(_middle(self.window().area))
        self.app.wait(role="popup menu", name=MENU)

    def test_a_drag_moves_it(self):
        x, y, width, height = self.start()
        moved = self.drag((x + 60, y + 20), (160, 80))
        self.assertEqual(moved[2:], (width, height))
        # sway takes over once the pointer has moved far enough for a drag: one step after the press.
        self.assertTrue(140 <= moved[0] - x <= 160 and 70 <= moved[1] - y <= 80, moved)
        again = self.drag((moved[0] + 60, moved[1] + 20), (-80, 160))
        self.assertEqual(again[2:], (width, height))
        self.assertLess(again[0], moved[0])

    def test_its_right_edge_changes_the_width(self):
        x, y, width, height = self.start()
        wider = self.drag((x + width - 2, y + 20), (80, 0))
        self.assertEqual(wider[0], x)
        self.assertTrue(70 <= wider[2] - width <= 80, wider)

    def test_a_greater_height_is_painted(self):
        x, y, width, height = self.start()
        self.assertEqual(height, LOWEST)
        self.time.advance(START_UP_DELAY)
        wait_for(lambda: self.black_rows() == height, "the complete window black at its left edge")

    def black_rows(self):
        x, y, _, height = self.window().area
        strip = self.session.grab((x, y, 1, height))
        return sum(strip.getpixel((0, row)) == (0, 0, 0) for row in range(height))


@unittest.skipUnless(shutil.which("sway"), "sway is not installed")
class WithTheRulesOfTheHelp(SwayCase):
    def make_session(self):
        return SwaySession(rules_of_the_help())

    def test_they_give_the_place_and_the_height(self):
        self.assertEqual(self.start(), (100, 100, 167, HEIGHT))
        self.assertTrue(self.window().is_sticky)

    def test_a_menu_opened_by_a_command_has_the_keyboard(self):
        self.start()
        opening = self.session.spawn(tickwell_command(self.session, arguments=("--menu",)))
        self.assertEqual(opening.wait_end(), 0)
        self.app.wait(role="popup menu", name=MENU)
        wait_for(lambda: self.window().is_focused, "the clock focused")

        def is_closed():
            self.session.press("Escape")  # again and again: XWayland may lose the first key of a new keyboard
            return not self.app.menus
        wait_for(is_closed, "the menu closed by a key")


def _middle(area):
    x, y, width, height = area
    return x + width // 2, y + height // 2


if __name__ == "__main__":
    unittest.main()
