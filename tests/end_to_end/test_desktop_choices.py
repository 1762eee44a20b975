# SPDX-License-Identifier: GPL-3.0-or-later
"""The window among other windows, as chosen in the settings: it hides under full-screen windows, the window switcher can
select it, and the windows that it opens stay on top. Except when a window manager ends, all this happens while the
program's time stands still, so without polling."""

import os
import signal
import unittest

from driver.case import TickwellCase
from driver.managed_window import ManagedWindow
from driver.processes import process_of
from driver.settings_case import SettingsCase, button, check
from driver.tickwell import main_window, start_tickwell, tickwell_command, wait_lines, wait_on_screen
from driver.tool_windows import MENU, choose, wait_for_hand
from driver.virtual_time import VirtualTime
from driver.waiting import steady, wait_for

START_UP_DELAY = 11000  # ms
TICK = 2000
FULL_SCREEN = "_NET_WM_STATE_FULLSCREEN"
SKIPPED = {"_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"}
PLACE = (100, 100, 167, 40)


class DesktopCase(TickwellCase):
    def start(self, **face):
        self.time = VirtualTime("1998-11-15T21:05:07")
        self.addCleanup(self.time.close)
        settings = {"SetUp": {"Win_Left": "1500", "Win_Top": "1500"}, "Face": face}
        self.app = start_tickwell(self.session, settings=settings, virtual_time=self.time)
        wait_lines(self.app, upper="Tickwell Ver.2")
        self.clock = ManagedWindow(self.session, wait_on_screen(self.session, self.app))
        self.addCleanup(self.clock.close)
        self.time.advance(START_UP_DELAY)

    def start_rival(self, name="rival"):
        """Starts another program; its window does not cover the clock's position and covers little else."""
        program = self.session.spawn(["xmessage", "-name", name, "-geometry", "400x300+500+500", name])
        self.rival = self.session.windows.wait(name=name)
        return program

    def second_start(self, *arguments):
        again = self.session.spawn(tickwell_command(self.session, arguments=arguments))
        self.assertEqual(again.wait_end(), 0)

    def fill_screen(self, wanted=True):
        self.session.windows.set_state(self.rival, FULL_SCREEN, wanted)

    def wait_hidden(self):
        wait_for(lambda: not self.clock.is_viewable(), "the clock hidden")

    def wait_shown(self):
        wait_for(self.clock.is_viewable, "the clock shown")
        wait_for(lambda: tuple(main_window(self.app).extents) == PLACE, "the clock at its place")

    def wait_kept_shown(self):
        """A window manager that is ending can swallow the request to show a window; the next check repeats it."""
        wait_for(lambda: self.time.advance(TICK) and self.clock.is_viewable(), "the clock shown")

    def assert_stays(self, expected):
        self.assertEqual(steady(lambda: "shown" if self.clock.is_viewable() else "hidden", "the clock"), expected)

    def check_silent_end(self):
        """The program keeps running and has printed nothing, not even errors of the X server."""
        self.second_start()
        self.wait_shown()
        self.assertEqual(self.app.program.output(), "")


class HidingTests:
    def start_hiding(self):
        self.start(HidesUnderFullScreen="True")
        rival = self.start_rival()
        self.wait_shown()
        self.fill_screen()
        self.wait_hidden()
        return rival

    def test_by_default_it_stays(self):
        self.start()
        self.start_rival()
        self.fill_screen()
        wait_for(lambda: FULL_SCREEN in self.session.windows.states(self.rival), "the rival full-screen")
        self.assert_stays("shown")

    def test_it_hides_while_another_window_fills_the_screen(self):
        self.start_hiding()
        self.time.advance(5 * TICK)
        self.assert_stays("hidden")
        self.fill_screen(False)
        self.wait_shown()
        wait_for(self.clock.is_everywhere, "the clock on all workspaces")
        wait_for(lambda: self.session.windows.states(self.clock.xid) >= SKIPPED, "the clock in no taskbar")
        self.fill_screen()
        self.wait_hidden()
        self.fill_screen(False)
        self.wait_shown()
        self.check_silent_end()

    def test_it_comes_back_when_the_other_program_is_killed(self):
        rival = self.start_hiding()
        os.kill(rival.pid, signal.SIGKILL)
        self.wait_shown()
        self.check_silent_end()

    def test_it_comes_back_when_the_other_window_is_iconified(self):
        self.start_hiding()
        other = ManagedWindow(self.session, self.rival)
        self.addCleanup(other.close)
        other.iconify()
        self.wait_shown()

    def test_it_comes_back_on_another_workspace(self):
        self.start_hiding()
        self.clock.show_workspace(1)
        self.wait_shown()
        self.clock.show_workspace(0)
        self.wait_hidden()

    def test_a_second_start_brings_it_until_the_next_time(self):
        self.start_hiding()
        self.second_start()
        self.wait_shown()
        self.time.advance(5 * TICK)
        self.assert_stays("shown")
        self.fill_screen(False)
        wait_for(lambda: FULL_SCREEN not in self.session.windows.states(self.rival), "the rival small")
        self.time.advance(TICK)  # the program has noticed this
        self.fill_screen()
        self.wait_hidden()
        self.second_start("--menu")
        self.wait_shown()
        self.app.wait(role="popup menu", name=MENU)

    def test_it_is_hidden_from_the_start_but_not_lost(self):
        self.start_rival()
        self.fill_screen()
        wait_for(lambda: FULL_SCREEN in self.session.windows.states(self.rival), "the rival full-screen")
        self.time = VirtualTime("1998-11-15T21:05:07")
        self.addCleanup(self.time.close)
        settings = {"SetUp": {"Win_Left": "1500", "Win_Top": "1500"}, "Face": {"HidesUnderFullScreen": "True"}}
        self.app = start_tickwell(self.session, settings=settings, virtual_time=self.time)
        self.time.advance(START_UP_DELAY)
        wait_for(lambda: self.session.windows.find(name="Tickwell") is None, "the clock hidden")
        self.fill_screen(False)
        self.session.windows.wait(name="Tickwell", pid=self.app.program.pid)

    def test_it_survives_the_end_of_the_window_manager(self):
        rival = self.start_hiding()
        manager = process_of(self.session, self.window_manager[0])
        os.kill(manager, signal.SIGKILL)
        os.kill(rival.pid, signal.SIGKILL)
        self.wait_kept_shown()
        self.session.spawn(list(self.window_manager))
        wait_for(self.session.windows.window_manager_answers, "the window manager")
        self.wait_kept_shown()
        self.start_rival("other")
        self.fill_screen()
        self.wait_hidden()
        self.fill_screen(False)
        self.wait_shown()


class OpenboxHiding(HidingTests, DesktopCase):
    pass


class Xfwm4Hiding(HidingTests, DesktopCase):
    window_manager = ("xfwm4", "--compositor=off")


class SwitcherTests:
    def switch(self):
        """Selects the previous window with the window manager's switcher. A busy window manager may see the keys
        released before it has grabbed the keyboard, and then switches to nothing, so Alt is held as long as a user
        would."""
        self.session.hand.hold("alt", "Tab")

    def start_focused_rival(self):
        self.start_rival()
        self.session.hand.click((700, 700))
        wait_for(lambda: self.session.windows.focus_owner() == self.rival, "the rival focused")

    def test_by_default_the_switcher_leaves_it_out(self):
        self.start()
        self.start_focused_rival()
        self.switch()
        self.assertEqual(steady(self.session.windows.focus_owner, "the focus"), self.rival)

    def test_the_switcher_reaches_it(self):
        self.start(InWindowSwitcher="True")
        self.assertFalse(self.session.windows.states(self.clock.xid) & SKIPPED)
        self.assertNotEqual(steady(lambda: self.session.windows.focus_owner() or 0, "the focus"), self.clock.xid)
        self.start_focused_rival()
        self.time.advance(5 * TICK)
        wait_for(self.clock.is_everywhere, "the clock on all workspaces")
        self.assertFalse(self.session.windows.states(self.clock.xid) & SKIPPED)
        self.assertEqual(self.session.windows.focus_owner(), self.rival)
        self.switch()
        wait_for(lambda: self.session.windows.focus_owner() == self.clock.xid, "the clock focused")
        self.assertEqual(tuple(main_window(self.app).extents), PLACE)
        self.session.hand.key("space")
        self.app.wait(role="popup menu", name=MENU)
        self.session.hand.key("Escape")
        self.app.wait_gone(role="popup menu", name=MENU)
        self.clock.iconify()
        wait_for(lambda: self.time.advance(TICK) and self.clock.is_viewable(), "the clock back")


class OpenboxSwitcher(SwitcherTests, DesktopCase):
    pass


class Xfwm4Switcher(SwitcherTests, DesktopCase):
    window_manager = ("xfwm4", "--compositor=off")


class ToolsTests:
    def start_with_calendar(self, **face):
        self.start(**face)
        self.start_rival()
        choose(self.session, self.app, "カレンダー")
        self.calendar = wait_for_hand(self.session, self.app, "カレンダー")
        wait_for(lambda: self.session.windows.is_above(self.calendar, self.rival), "the new window on top")

    def raise_rival(self):
        """Activates the other program, and waits until the window manager has answered to that."""
        self.session.windows.activate(self.rival)
        wait_for(lambda: self.session.windows.focus_owner() == self.rival, "the rival focused")
        steady(self.session.windows.stacking, "the windows")

    def test_by_default_another_window_covers_it(self):
        self.start_with_calendar()
        self.raise_rival()
        self.assertTrue(self.session.windows.is_above(self.rival, self.calendar))
        self.assertTrue(self.session.windows.is_above(self.clock.xid, self.rival))

    def test_it_is_kept_on_top(self):
        self.start_with_calendar(ToolsStayOnTop="True")
        self.raise_rival()
        self.assertTrue(self.session.windows.is_above(self.calendar, self.rival))


class OpenboxTools(ToolsTests, DesktopCase):
    pass


class Xfwm4Tools(ToolsTests, DesktopCase):
    window_manager = ("xfwm4", "--compositor=off")


class Chosen(SettingsCase):
    def choose_box(self, caption):
        self.open()
        self.page("窓")
        self.click(check(caption), button("OK"))
        self.wait_closed()

    def states(self):
        return self.session.windows.states(self.session.windows.wait(name="Tickwell", pid=self.app.program.pid))

    def test_the_switcher_is_chosen_and_left_at_once(self):
        self.start()
        place = tuple(main_window(self.app).extents)
        wait_for(lambda: self.states() >= SKIPPED, "the clock in no taskbar")
        self.choose_box("ウィンドウの切り替えに出す")
        wait_for(lambda: not self.states() & SKIPPED, "the clock in the taskbar")
        wait_for(lambda: tuple(main_window(self.app).extents) == place, "the clock at its place")
        self.choose_box("ウィンドウの切り替えに出す")
        wait_for(lambda: self.states() >= SKIPPED, "the clock in no taskbar")
        self.choose_box("全画面の窓があるときは隠れる")
        self.quit()
        self.assertEqual(self.stored("Face"), {"HidesUnderFullScreen": "True"})


if __name__ == "__main__":
    unittest.main()
