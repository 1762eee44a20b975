# SPDX-License-Identifier: GPL-3.0-or-later
"""The settings dialog of a program on virtual time, operated with the mouse."""

from driver.case import TickwellCase
from driver.hand import point_of
from driver.tickwell import main_window, read_settings, start_tickwell, wait_lines, wait_on_screen
from driver.virtual_time import VirtualTime
from driver.waiting import wait_for

START_UP_DELAY = 11000  # ms
SETTINGS = "環境設定"


def radio(caption):
    return {"role": "radio button", "name": caption, "showing": True}


def check(caption):
    return {"role": "check box", "name": caption, "showing": True}


def button(caption):
    return {"role": "push button", "name": caption, "showing": True}


class SettingsCase(TickwellCase):
    def start(self, settings=None, folder=None, wall="1998-11-15T21:05:07"):
        self.time = VirtualTime(wall, 307000)
        self.addCleanup(self.time.close)
        self.app = start_tickwell(self.session, folder=folder, settings=settings, virtual_time=self.time)
        wait_lines(self.app, upper="Tickwell Ver.2")
        wait_on_screen(self.session, self.app)
        self.time.advance(START_UP_DELAY)

    def choose(self, caption):
        self.session.hand.click(main_window(self.app))
        self.session.hand.click(self.app.wait(role="popup menu", name="メニュー").wait(name=caption))

    def window(self, name):
        """Waits until one of the program's dialogs can receive mouse input; returns it."""
        self.session.windows.wait(name=name, pid=self.app.program.pid)
        return self.app.wait(role="dialog", name=name, showing=True)

    def open(self):
        self.choose(SETTINGS)
        self.dialog = self.window(SETTINGS)

    def page(self, name):
        self.session.hand.click(self.dialog.wait(role="page tab", name=name))

    def click(self, *targets, window=None):
        window = window or self.dialog
        for target in targets:
            node = window.wait(**target)
            wait_for(lambda node=node: self.session.windows.name_at(*point_of(node)) == window.name,
                     f"{window.name} uncovered at {target}")
            self.session.hand.click(node)

    def is_on(self, target):
        return "checked" in self.dialog.wait(**target).states

    def wait_closed(self, name=SETTINGS):
        self.app.wait_gone(role="dialog", name=name, showing=True)

    def quit(self):
        self.choose("終了")
        self.assertEqual(self.app.program.wait_end(), 0)
        self.assertEqual(self.app.program.output(), "")

    def stored(self, section):
        return read_settings(self.session)[section]
