# SPDX-License-Identifier: GPL-3.0-or-later
"""The window is kept above others under real window managers, without taking the focus."""

import unittest

from driver.case import TickwellCase
from driver.tickwell import main_window, start_tickwell, wait_lines, wait_on_screen
from driver.virtual_time import VirtualTime
from driver.waiting import wait_for

START_UP_DELAY = 11000  # ms
TICK = 2000


class KeepTopCase(TickwellCase):
    def start(self):
        self.time = VirtualTime("1998-11-15T21:05:07")
        self.addCleanup(self.time.close)
        self.app = start_tickwell(self.session, settings={"SetUp": {"Win_Left": "1500", "Win_Top": "1500"}},
                                  virtual_time=self.time)
        wait_lines(self.app, upper="Tickwell Ver.2")
        self.ours = wait_on_screen(self.session, self.app)
        self.time.advance(START_UP_DELAY)
        self.time.advance(2 * TICK)  # it is on top, so only a change that the X server reports lets it look again

    def start_rival(self):
        windows = self.session.windows
        self.session.spawn(["xmessage", "-name", "rival", "-geometry", "400x300+50+50", "rival"])
        rival = windows.wait(name="rival")
        self.session.hand.click((300, 300))
        wait_for(lambda: windows.focus_owner() == rival, "the rival focused")
        return rival

    def wait_above(self, rival):
        """The first check may come before the report of the change."""
        def ticks():
            self.time.advance(TICK)
            return self.session.windows.is_above(self.ours, rival)
        wait_for(ticks, "the window above again")

    def check_back_above(self, rival):
        """Checks that the window returns to the top at its position, and the rival still has the focus."""
        windows = self.session.windows
        wait_for(lambda: windows.is_above(rival, self.ours), "the rival above")
        self.wait_above(rival)
        self.assertEqual(windows.focus_owner(), rival)
        self.assertEqual(tuple(main_window(self.app).extents), (100, 100, 167, 40))


class Openbox(KeepTopCase):
    def test_a_rival_that_is_itself_above_and_raised_is_overtaken(self):
        self.start()
        rival = self.start_rival()
        self.session.windows.set_state(rival, "_NET_WM_STATE_ABOVE")
        self.session.hand.click((300, 300))
        self.check_back_above(rival)

    def test_a_rival_is_left_alone_while_the_menu_is_open(self):
        self.start()
        rival = self.start_rival()
        self.session.hand.click((130, 130))
        self.app.wait(role="popup menu")
        self.session.windows.set_state(rival, "_NET_WM_STATE_ABOVE")
        self.session.windows.raise_window(rival)
        wait_for(lambda: self.session.windows.is_above(rival, self.ours), "the rival above")
        self.time.advance(3 * TICK)
        self.assertTrue(self.session.windows.is_above(rival, self.ours))
        self.assertTrue(self.app.find(role="popup menu"))


class Xfwm4(KeepTopCase):
    window_manager = ("xfwm4", "--compositor=off")

    def test_its_place_above_comes_back_after_it_was_taken_away(self):
        self.start()
        rival = self.start_rival()
        self.session.windows.set_state(self.ours, "_NET_WM_STATE_ABOVE", wanted=False)
        self.session.hand.click((300, 300))
        self.check_back_above(rival)
        wait_for(lambda: "_NET_WM_STATE_ABOVE" in self.session.windows.states(self.ours), "the state above")


class WithoutWindowManager(KeepTopCase):
    window_manager = None

    def test_a_window_that_was_raised_is_overtaken(self):
        self.start()
        self.session.spawn(["xmessage", "-name", "rival", "-geometry", "400x300+50+50", "rival"])
        rival = self.session.windows.wait(name="rival")
        wait_for(lambda: self.session.windows.is_above(rival, self.ours), "the rival above")
        self.wait_above(rival)


if __name__ == "__main__":
    unittest.main()
