# SPDX-License-Identifier: GPL-3.0-or-later
"""Windows on screens that are small for their contents: twice as large as usual, or with few pixels."""

import unittest

from driver.case import TickwellCase
from driver.desktop import Session
from driver.tickwell import start_tickwell, wait_lines, wait_on_screen
from driver.tool_windows import button, press, wait_for_hand, wait_window
from driver.waiting import wait_for

TWICE = 2


class SmallScreens(TickwellCase):
    def start(self, width, height):
        """Starts the program on a screen of this many pixels, drawn twice as large as usual."""
        self.session.close()
        self.size = (width, height)
        self.session = Session(self.window_manager, screen=f"{width}x{height}x24",
                               environment={"QT_SCALE_FACTOR": str(TWICE)})
        self.addCleanup(self.session.close)
        self.app = start_tickwell(self.session)
        wait_lines(self.app, upper="Tickwell Ver.2")
        wait_on_screen(self.session, self.app)

    def choose(self, caption):
        """Chooses an item of the menu without the mouse: the extents of the controls are not those of its pixels."""
        x, y, width, height = self.session.windows.settled_geometry(wait_on_screen(self.session, self.app))
        self.session.hand.click((x + width // 2, y + height // 2))
        self.app.wait(role="popup menu", name="メニュー").wait(name=caption).press_and_go()

    def assert_on_screen(self, title):
        geometry = self.session.windows.settled_geometry(wait_for_hand(self.session, self.app, title))
        self.assertGreaterEqual(min(geometry.x, geometry.y), 0)
        self.assertLessEqual(geometry.x + geometry.width, self.size[0], geometry)
        self.assertLessEqual(geometry.y + geometry.height, self.size[1], geometry)
        return geometry

    def open_search(self):
        self.choose("カレンダー")
        calendar = wait_window(self.app, "カレンダー")
        press(calendar, "記念日の一覧を開く")
        wait_for(lambda: button(calendar, "検索").showing, "the panel")
        press(calendar, "検索")
        return wait_window(self.app, "記念日の検索")

    def test_the_search_scrolls_above_its_buttons(self):
        self.start(1366, 768)
        search = self.open_search()
        window = self.assert_on_screen("記念日の検索")
        x, y, width, height = button(search, "検索開始").extents  # relative to the window's corner, in logical pixels
        left, top = x - window.x // TWICE, y - window.y // TWICE
        self.assertLessEqual((left + width) * TWICE, window.width)
        self.assertLessEqual((top + height) * TWICE, window.height)
        self.assertTrue(search.find(role="scroll bar", showing=True))

    def test_a_search_that_fits_does_not_scroll(self):
        self.start(1920, 1080)
        search = self.open_search()
        self.assert_on_screen("記念日の検索")
        self.assertIsNone(search.find(role="scroll bar", showing=True))

    def test_the_help_fits(self):
        self.start(1280, 1024)
        self.choose("ﾍﾙﾌﾟ")
        window = self.assert_on_screen("Tickwell ヘルプ")
        help_window = wait_window(self.app, "Tickwell ヘルプ")
        side = help_window.wait(role="tree", name="目次").extents[2]
        self.assertAlmostEqual(side * TWICE / window.width, 46 / 160, delta=0.03)


if __name__ == "__main__":
    unittest.main()
