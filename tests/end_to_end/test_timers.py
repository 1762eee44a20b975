# SPDX-License-Identifier: GPL-3.0-or-later
"""The list of timers: its window, the notice at zero, and its file through ends, kills, damage and refused writes.

TICKWELL_SEED repeats a test run."""

import os
import random
import sqlite3
import unittest

from driver.boxes import RUN_TIME_ERROR, close_box, wait_box
from driver.case import TickwellCase
from driver.desktop import Session
from driver.tickwell import make_folder, start_tickwell, wait_lines, wait_on_screen
from driver.tool_windows import button, choose, press, wait_for_hand, wait_window
from driver.virtual_time import VirtualTime
from driver.waiting import wait_for

START_UP_DELAY = 11000  # ms
MINUTE = 60_000
KILLS = int(os.environ.get("TICKWELL_KILLS", "20")) // 4
SEED = int(os.environ.get("TICKWELL_SEED", random.randrange(2**32)))
LIST = "タイマー一覧"
TIMER = "タイマー"
TEA = "紅茶 4分"
WORK = "集中 25分／休憩 5分"
# Root bypasses permissions; without these capabilities it does not.
REFUSED = ["setpriv", "--bounding-set", "-dac_override,-dac_read_search"] if os.geteuid() == 0 else []


class TimersCase(TickwellCase):
    def setUp(self):
        super().setUp()
        self.folder = make_folder(self.session.directory / "timers")
        self.file = self.folder / "Tools.db"

    def start(self, wall="1998-11-15T21:05:07", **options):
        self.time = VirtualTime(wall, 307000)
        self.addCleanup(self.time.close)
        self.app = start_tickwell(self.session, folder=self.folder, settings={"SetUp": {"Function": "3"}},
                                  virtual_time=self.time, **options)
        wait_on_screen(self.session, self.app)
        self.time.advance(START_UP_DELAY)

    def open_list(self):
        wait_lines(self.app, upper=TIMER, timeout=60)
        timer = self.app.wait(role="dialog", name=TIMER, showing=True,
                              which=lambda node: node.find(role="spin box") is not None)
        wait_for_hand(self.session, self.app, TIMER)
        press(timer, "一覧...")
        self.list = wait_window(self.app, LIST)
        wait_for_hand(self.session, self.app, LIST)

    def rows(self):
        """The texts of the list, row by row."""
        with sqlite3.connect(f"file:{self.file}?mode=ro", uri=True) as database:
            return database.execute("SELECT name, phase FROM timers ORDER BY id").fetchall()

    def cell(self, text):
        self.list.wait(role="cell", name=text)

    def notices(self):
        return self.app.find_all(role="dialog", name=TIMER, showing=True,
                                 which=lambda node: node.find(role="push button", name="5分後にもう一度") is not None)

    def wait_notice(self, *texts):
        notice = wait_for(self.notices, "the notice")[0]
        for text in texts:
            notice.wait(role="list item", name=text)
        self.assertEqual(len(notice.find_all(role="list item")), len(texts), notice.dump())
        return notice

    def quit_at_once(self):
        """What was stored so far is all that the next start has."""
        self.app.program.kill()
        self.time.close()


class Timers(TimersCase):
    def test_a_preset_runs_and_is_told_once(self):
        self.start()
        self.assertFalse(self.file.exists())
        self.open_list()
        for title in ("名前", "残り", "終わる時刻", "状態"):
            self.assertTrue(self.list.find(role="column header", name=title), self.list.dump())
        self.cell("メイン")
        press(self.list, TEA)
        self.cell("動作中")
        self.time.advance(MINUTE)
        self.cell("3:00")
        self.assertEqual(self.rows(), [("紅茶", 1)])
        self.time.advance(3 * MINUTE)
        notice = self.wait_notice("「紅茶」が終わりました")
        self.assertEqual(self.rows(), [("紅茶", 3)])
        press(notice, "5分後にもう一度")
        wait_for(lambda: not self.notices(), "the notice closed")
        self.time.advance(5 * MINUTE)
        press(self.wait_notice("「紅茶」が終わりました"), "確認")
        wait_for(lambda: not self.notices(), "the notice closed")
        self.time.advance(60 * MINUTE)
        self.assertFalse(self.notices())
        self.assertEqual(self.app.program.output(), "")

    def test_several_end_in_one_notice_and_a_chain_goes_on(self):
        self.start()
        self.open_list()
        press(self.list, TEA)
        self.cell("紅茶")
        press(self.list, WORK)
        self.cell("集中")
        self.time.suspend(26 * MINUTE)
        self.time.advance(1000)
        press(self.wait_notice("「紅茶」は22分前に終わりました", "「集中」は1分前に終わりました"), "確認")
        self.cell("休憩")

    def test_an_added_timer_with_the_keyboard(self):
        self.start()
        self.open_list()
        self.list.wait(role="text", name="名前").grab_focus()
        self.session.hand.type("bread")
        self.session.hand.key("Return")
        self.cell("bread")
        self.assertEqual(self.rows(), [("bread", 0)])
        start = button(self.list, "開始")
        start.grab_focus()
        self.session.hand.key("space")
        self.cell("動作中")
        self.assertEqual(self.rows(), [("bread", 1)])
        self.session.hand.key("Escape")
        self.app.wait_gone(role="dialog", name=LIST, showing=True)
        self.time.advance(3 * MINUTE)
        self.wait_notice("「bread」が終わりました")

    def test_no_notice_while_the_menu_is_open(self):
        self.start()
        self.open_list()
        press(self.list, TEA)
        self.cell("紅茶")
        self.session.hand.key("Escape")
        self.app.wait_gone(role="dialog", name=LIST, showing=True)
        choose(self.session, self.app, "Windows時計")
        self.session.hand.click(wait_for(lambda: self.app.find(role="label", showing=True), "the lines"))
        wait_for(lambda: self.app.menus, "the menu")
        self.time.advance(5 * MINUTE)
        self.assertTrue(self.app.menus)
        self.assertFalse(self.notices())
        self.session.hand.key("Escape")
        wait_for(lambda: not self.app.menus, "the end of the menu")
        self.time.advance(1000)
        self.wait_notice("「紅茶」は1分前に終わりました")


class SmallScreen(TimersCase):
    def make_session(self):
        return Session(self.window_manager, screen="1366x768x24", environment={"QT_SCALE_FACTOR": "2"})

    def test_the_window_scrolls_above_its_buttons(self):
        self.start()
        self.open_list()
        window = self.session.windows.settled_geometry(wait_for_hand(self.session, self.app, LIST))
        self.assertGreaterEqual(min(window.x, window.y), 0)
        self.assertLessEqual(window.x + window.width, 1366, window)
        self.assertLessEqual(window.y + window.height, 768, window)
        self.assertTrue(button(self.list, "閉じる").showing)
        self.assertTrue(self.list.find(role="scroll bar", showing=True), self.list.dump())


class Kept(TimersCase):
    def test_an_end_while_it_was_away_is_told_once(self):
        self.start()
        self.open_list()
        press(self.list, TEA)
        self.cell("動作中")
        self.quit_at_once()
        self.start(wall="1998-11-15T21:21:20")
        press(self.wait_notice("「紅茶」は12分前に終わりました"), "確認")
        wait_for(lambda: not self.notices(), "the notice closed")
        self.quit_at_once()
        self.start(wall="1998-11-15T21:30:00")
        self.open_list()
        self.cell("終了")
        self.assertFalse(self.notices())

    def test_kills_lose_nothing_that_was_shown(self):
        chance = random.Random(SEED)
        print(f"TICKWELL_SEED={SEED}")
        shown = 0
        for _ in range(KILLS):
            self.start()
            self.open_list()
            for _ in range(chance.randint(1, 3)):
                press(self.list, "追加")
                shown += 1
                self.cell(f"タイマー{shown}")
            press(self.list, "追加")  # killed while or before this one is stored
            self.quit_at_once()
            stored = self.rows()
            self.assertIn(len(stored), (shown, shown + 1))
            self.assertEqual(stored, [(f"タイマー{number}", 0) for number in range(1, len(stored) + 1)])
            shown = len(stored)

    def test_a_damaged_file_is_put_aside(self):
        self.file.write_bytes(b"damaged" * 1000)
        self.start()
        box = wait_box(self.app, "タイマーの記録 Tools.db が壊れていたので、Tools.damaged.db に名前を変えて")
        box.find(role="push button").press_and_go()
        self.app.wait_gone(role="alert message", showing=True)
        self.assertEqual((self.folder / "Tools.damaged.db").read_bytes(), b"damaged" * 1000)
        self.open_list()
        press(self.list, TEA)
        self.cell("紅茶")
        self.assertEqual(self.rows(), [("紅茶", 1)])
        self.assertFalse(self.app.find(role="alert message", showing=True))

    def test_a_file_that_cannot_be_written(self):
        self.start(wrap=lambda command: [*REFUSED, *command])
        self.open_list()
        self.cell("メイン")
        self.file.chmod(0o400)
        self.folder.chmod(0o500)
        self.addCleanup(self.folder.chmod, 0o700)
        press(self.list, TEA)
        close_box(self.app, RUN_TIME_ERROR)
        self.assertFalse(self.list.find(role="cell", name="紅茶"))
        self.folder.chmod(0o700)
        press(self.list, TEA)
        self.cell("紅茶")
        self.assertEqual(self.rows(), [("紅茶", 1)])


if __name__ == "__main__":
    unittest.main()
