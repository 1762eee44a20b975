# SPDX-License-Identifier: GPL-3.0-or-later
"""The window stays visible: iconified, behind "show desktop", on another workspace."""

import os
import shutil
import signal
import unittest

from driver import stubborn_manager
from driver.answering import keeps_answering
from driver.case import TickwellCase
from driver.desktop import Session
from driver.managed_window import ManagedWindow
from driver.processes import process_of
from driver.tickwell import main_window, start_tickwell, tickwell_command, wait_lines, wait_on_screen
from driver.tool_windows import MENU, press, wait_for_hand, wait_window
from driver.virtual_time import VirtualTime
from driver.waiting import wait_for

START_UP_DELAY = 11000  # ms
TICK = 2000
# The title of the window that each menu item opens.
OPENED = {"ﾀｲﾏｰ": "タイマー", "CDﾌﾟﾚｰﾔｰ": None, "操作ｳｨﾝﾄﾞｳの表示": "CDプレーヤー", "ﾍﾙﾌﾟ": "Tickwell ヘルプ",
          "カレンダー": "カレンダー", "バージョン情報": "Tickwellのﾊﾞｰｼﾞｮﾝ情報", "環境設定": "環境設定"}
DECLARED = {"_NET_WM_STATE_ABOVE", "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"}


class ManagerCase(TickwellCase):
    def start(self):
        self.time = VirtualTime("1998-11-15T21:05:07")
        self.addCleanup(self.time.close)
        self.app = start_tickwell(self.session, settings={"SetUp": {"Win_Left": "1500", "Win_Top": "1500"}},
                                  virtual_time=self.time)
        wait_lines(self.app, upper="Tickwell Ver.2")
        self.window = ManagedWindow(self.session, wait_on_screen(self.session, self.app))
        self.addCleanup(self.window.close)
        self.time.advance(START_UP_DELAY)

    def start_rival(self, name="rival"):
        """Starts another program whose window has the focus."""
        windows = self.session.windows
        self.session.spawn(["xmessage", "-name", name, "-geometry", "400x300+500+500", name])
        rival = windows.wait(name=name)
        self.session.hand.click((700, 700))
        wait_for(lambda: windows.focus_owner() == rival, "the rival focused")
        return rival

    def second_start(self, *arguments):
        again = self.session.spawn(tickwell_command(self.session, arguments=arguments))
        self.assertEqual(again.wait_end(), 0)

    def iconify(self):
        self.window.iconify()
        wait_for(lambda: not self.window.is_viewable(), "the window iconified")

    def look(self):
        """Advances time until the program has noticed a change of its window and has restored it."""
        wait_for(lambda: self.time.advance(TICK) and self.window.is_viewable(), "the window back")

    def wait_back(self):
        wait_for(self.window.is_viewable, "the window back")
        wait_for(lambda: main_window(self.app) and tuple(main_window(self.app).extents) == (100, 100, 167, 40), "the window at its place")
        self.check_declared()

    def check_declared(self):
        wait_for(lambda: self.session.windows.states(self.window.xid) >= DECLARED, f"the states {DECLARED}")
        wait_for(self.window.is_everywhere, "the window on all workspaces")


class ManagerTests:
    def test_it_is_on_all_workspaces_and_in_no_taskbar(self):
        self.start()
        self.check_declared()
        for workspace in (1, 0):
            self.window.show_workspace(workspace)
            wait_for(self.window.is_viewable, f"the window on workspace {workspace}")

    def test_iconified_it_is_restored_by_the_next_check(self):
        self.start()
        rival = self.start_rival()
        for _ in range(2):
            self.iconify()
            self.look()
            self.wait_back()
            self.assertEqual(self.session.windows.focus_owner(), rival)

    def test_a_second_start_brings_it_back(self):
        self.start()
        self.iconify()
        self.second_start()
        self.wait_back()
        self.iconify()
        self.second_start("--menu")
        self.wait_back()
        self.app.wait(role="popup menu", name=MENU)

    def test_the_bare_desktop_does_not_keep_it(self):
        self.start()
        self.start_rival()
        self.window.show_desktop()
        self.second_start()
        self.wait_back()
        self.window.show_desktop()
        self.start_rival("other")
        self.look()
        self.wait_back()

    def test_put_on_another_workspace_it_is_brought_to_this_one(self):
        self.start()
        self.window.send_to_workspace(1)
        wait_for(lambda: not self.window.is_viewable(), "the window on the other workspace")
        self.second_start()
        self.wait_back()


class Openbox(ManagerTests, ManagerCase):
    pass


class Xfwm4(ManagerTests, ManagerCase):
    window_manager = ("xfwm4", "--compositor=off")


@unittest.skipUnless(shutil.which("kwin_x11"), "kwin_x11 is not installed")
class Kwin(ManagerTests, ManagerCase):
    window_manager = ("kwin_x11", "--no-kactivities")

    def make_session(self):
        return Session(self.window_manager, environment={"KWIN_COMPOSE": "N"})

    def start(self):
        super().start()
        self.window.set_workspaces(2)

    def test_it_demands_no_attention(self):
        self.start()
        rival = self.start_rival()
        for _ in range(2):
            self.check_declared()
            self.assertNotIn("_NET_WM_STATE_DEMANDS_ATTENTION", self.session.windows.states(self.window.xid))
            self.assertEqual(self.session.windows.focus_owner(), rival)
            self.iconify()
            self.look()


class Stopped(ManagerCase):
    """A window manager that hangs can keep new windows off the screen, but affects nothing else."""

    def step(self, caption):
        """Chooses an item of the menu, opened by a second start, and lets the program check its window."""
        with keeps_answering(self.session, self.app.program, self.window.xid):
            self.second_start("--menu")
            self.session.hand.click(self.app.wait(role="popup menu", name=MENU).wait(name=caption))
            self.app.wait_gone(role="popup menu", name=MENU)
            self.time.advance(TICK)

    def test_no_step_waits_for_it(self):
        self.start()
        manager = process_of(self.session, "openbox")
        os.kill(manager, signal.SIGSTOP)
        self.addCleanup(os.kill, manager, signal.SIGCONT)
        for caption, title in OPENED.items():
            with self.subTest(caption):
                self.step(caption)
                if title:
                    self.app.wait(name=title, showing=True)
        with keeps_answering(self.session, self.app.program, self.window.xid):
            press(wait_window(self.app, "環境設定"), "キャンセル")
            self.time.advance(TICK)
        os.kill(manager, signal.SIGCONT)
        for title in filter(None, OPENED.values()):
            if title != "環境設定":
                wait_for_hand(self.session, self.app, title)
        self.window.iconify()
        self.look()


class WithoutWindowsEverywhere(ManagerCase):
    window_manager = stubborn_manager.COMMAND

    def test_a_second_start_brings_it_to_the_workspace_that_is_seen(self):
        self.start()
        self.assertEqual(self.window.workspace(), 0)
        self.window.show_workspace(1)
        self.time.advance(TICK)
        self.assertEqual(self.window.workspace(), 0)
        self.second_start()
        wait_for(lambda: self.window.workspace() == 1, "the window on the workspace that is seen")


class WithoutWindowManager(ManagerCase):
    window_manager = None

    def test_unmapped_it_is_restored_by_the_next_check(self):
        self.start()
        self.window.unmap()
        wait_for(lambda: not self.window.is_viewable(), "the window unmapped")
        self.look()
        self.assertEqual(tuple(main_window(self.app).extents), (100, 100, 167, 40))


if __name__ == "__main__":
    unittest.main()
