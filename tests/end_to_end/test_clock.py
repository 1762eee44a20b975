# SPDX-License-Identifier: GPL-3.0-or-later
"""The clock on the desktop, with virtual time."""

import re
import unittest

from driver.case import TickwellCase
from driver.tickwell import lines, main_window, read_settings, start_tickwell, wait_lines, wait_on_screen
from driver.virtual_time import VirtualTime

START_UP_DELAY = 11000  # ms until the stored function starts
MENU = "メニュー"


class Clock(TickwellCase):
    def start(self, wall="1998-11-15T21:05:07", tick=307000, settings=None):
        self.time = VirtualTime(wall, tick)
        self.addCleanup(self.time.close)
        self.app = start_tickwell(self.session, settings=settings, virtual_time=self.time)
        wait_lines(self.app, upper="Tickwell Ver.2", lower="")
        wait_on_screen(self.session, self.app)

    def choose(self, caption):
        self.session.hand.click(main_window(self.app))
        self.app.wait(role="popup menu", name=MENU)
        self.session.hand.click(self.app.wait(role=lambda role: "menu item" in role, name=caption))

    def test_date_and_time_come_after_the_start_up_delay(self):
        self.start()
        self.time.advance(START_UP_DELAY - 1)
        wait_lines(self.app, upper="Tickwell Ver.2", lower="")
        self.time.advance(1)
        wait_lines(self.app, upper="平成10年11月15日(日曜日)", lower="午後9時05分18秒")
        for second in range(19, 25):
            self.time.advance(1000)
            wait_lines(self.app, lower=f"午後9時05分{second}秒")

    def test_midnight_passes(self):
        self.start(wall="1998-10-03T23:59:40")
        self.time.advance(START_UP_DELAY)
        wait_lines(self.app, upper="平成10年10月3日(土曜日)", lower="午後11時59分51秒")
        self.time.advance(9000)
        wait_lines(self.app, upper="平成10年10月3日(土曜日)", lower="午前0時00分00秒")
        self.time.advance(1000)  # the next refresh of the upper line
        wait_lines(self.app, upper="平成10年10月4日(日曜日)", lower="午前0時00分01秒")

    def test_the_styles_of_the_settings_are_shown(self):
        self.start(settings={"Digital": {"Language": "1", "DisMode": "1", "TypeHour": "1"}})
        self.time.advance(START_UP_DELAY)
        wait_lines(self.app, upper="Nov. 15,1998 Sun.", lower="21:05:18")

    def test_old_japanese_style(self):
        self.start(settings={"Digital": {"Language": "2"}})
        self.time.advance(START_UP_DELAY)
        wait_lines(self.app, upper="寅年 霜月 十五日", lower="亥の一刻")

    def test_the_usage_time_is_chosen_from_the_menu_and_comes_back_at_the_next_start(self):
        self.start()
        self.time.advance(START_UP_DELAY)
        self.choose("Windows時計")
        wait_lines(self.app, upper="Windows使用時間", lower="05分18秒")
        self.time.advance(2000)
        wait_lines(self.app, lower="05分20秒")
        self.choose("終了")
        self.assertEqual(self.app.program.wait_end(), 0)
        self.assertEqual(read_settings(self.session)["SetUp"]["Function"], "1")
        self.start(tick=3607000)
        self.time.advance(START_UP_DELAY)
        wait_lines(self.app, upper="Windows使用時間", lower="1時間00分18秒")

    def test_the_memory_load_is_chosen_from_the_menu(self):
        self.start()
        self.time.advance(START_UP_DELAY)
        self.choose("ﾒﾓﾘｰ監視")
        wait_lines(self.app, upper="メモリー使用率", lower=re.compile(r"\d{1,3}％使用中").fullmatch)
        self.time.advance(4000)
        wait_lines(self.app, lower=re.compile(r"\d{1,3}％使用中").fullmatch)

    def test_a_week_passes_without_a_word_on_the_outputs(self):
        self.start(settings={"Digital": {"DisMode": "1", "TypeHour": "1"}})
        self.time.advance(START_UP_DELAY)
        for _ in range(7):
            self.time.set_wall("1998-12-31T23:59:50")
            self.time.advance(20000)
            wait_lines(self.app, upper="平11/1/1(金)", lower="0:00:10")
        self.assertEqual(self.app.program.output(), "")

    def test_the_menu_marks_the_function(self):
        self.start()
        self.time.advance(START_UP_DELAY)
        self.session.hand.click(main_window(self.app), button=3)
        menu = self.app.wait(role="popup menu", name=MENU)
        marked = [item.name for item in menu.children if "checked" in item.states]
        self.assertEqual(marked, ["ﾃﾞｼﾞﾀﾙ時計"])

    def test_the_window_looks_as_a_first_start_should(self):
        self.start()
        window = main_window(self.app)
        self.assertEqual(tuple(window.extents), (0, 0, 167, 40))
        self.time.advance(START_UP_DELAY + 2000)
        wait_lines(self.app, lower="午後9時05分20秒")
        colours = {colour for _, colour in self.session.grab(tuple(window.extents)).getcolors(1 << 16)}
        self.assertTrue({(0, 0, 0), (255, 255, 255), (0, 255, 0)} <= colours, colours)

    def test_a_wide_window_keeps_its_fractional_twips(self):
        self.start(settings={"SetUp": {"Win_Width": "2505.6", "Win_Left": "300"}})
        self.assertEqual(tuple(main_window(self.app).extents), (20, 0, 167, 40))
        self.session.windows.close_window(wait_on_screen(self.session, self.app))
        self.assertEqual(self.app.program.wait_end(), 0)
        self.assertEqual(read_settings(self.session)["SetUp"]["Win_Width"], "2506")
        self.assertEqual(read_settings(self.session)["SetUp"]["Win_Left"], "300")

    def test_a_function_that_does_not_exist_leaves_the_lines_alone(self):
        self.start(settings={"SetUp": {"Function": "99"}})
        self.time.advance(60000)
        self.assertEqual(lines(self.app), ("Tickwell Ver.2", ""))


if __name__ == "__main__":
    unittest.main()
