# SPDX-License-Identifier: GPL-3.0-or-later
"""The anniversary book: adding, finding, editing and deleting, from the calendar to the upper line."""

import unittest

from driver.case import TickwellCase
from driver.tickwell import main_window, start_tickwell, tickwell_command, wait_lines, wait_on_screen
from driver.virtual_time import VirtualTime

START_UP_DELAY = 11000  # ms
LOOK_UP = 200
TURN = 10000
TODAY = "平成38年11月20日(金曜日)"
CALENDAR = "カレンダー"
ADDING = "記念日の追加"
EDITING = "記念日の編集"
SEARCH = "記念日の検索"
DELETION = "記念日の削除"
CONTROLS = 40  # more than any window has


class Book(TickwellCase):
    def setUp(self):
        super().setUp()
        self.time = VirtualTime("2026-11-20T12:00:00")
        self.addCleanup(self.time.close)
        self.app = start_tickwell(self.session, virtual_time=self.time)
        wait_lines(self.app, upper="Tickwell Ver.2")
        wait_on_screen(self.session, self.app)
        self.time.advance(START_UP_DELAY)
        wait_lines(self.app, upper=TODAY)
        self.hand = self.session.hand

    def window(self, title):
        """Waits until the window of this title has the keyboard focus."""
        self.session.windows.wait(name=title, pid=self.app.program.pid)
        return self.app.wait(name=title, showing=True, which=lambda node: "active" in node.states)

    def gone(self, title):
        """Waits until a window is closed and the calendar is active again."""
        self.app.wait_gone(name=title, showing=True)
        return self.window(CALENDAR)

    def go_to(self, window, name):
        """Presses Tab until the control of this name has the focus. A list has the same name as its button, and its row
        reports the focus even without it, so tables are skipped."""
        for _ in range(CONTROLS):
            if window.find(name=name, which=lambda node: "focused" in node.states and node.role != "table"):
                return
            self.hand.key("Tab")
        self.fail(f"Tab does not lead to {name}:\n{window.dump()}")

    def press(self, window, name):
        self.go_to(window, name)
        self.hand.key("space")

    def open_calendar(self):
        """Opens the calendar with its panel. The menu is opened by a second start, as by a desktop shortcut."""
        self.assertEqual(self.session.spawn(tickwell_command(self.session, arguments=("--menu",))).wait_end(), 0)
        self.app.wait(role="popup menu", name="メニュー")
        self.hand.key("Return")  # the first enabled item
        calendar = self.window(CALENDAR)
        self.press(calendar, "記念日の一覧を開く")
        calendar.wait(role="label", name="2026年11月20日の記念日", showing=True)
        return calendar

    def add(self, calendar, name):
        self.press(calendar, "追加")
        self.window(ADDING)
        self.hand.type(name)
        self.hand.key("Return")

    def wait_list(self, calendar, *rows):
        """Waits until the list contains these rows: name, year, month, day, week."""
        calendar.wait(role="label", name=f"ﾃﾞｰﾀ件数 {len(rows)}件")
        self.assertEqual(calendar.wait(role="table").table(), [list(row) for row in rows])

    def wait_turns(self, *texts):
        for text in texts:
            self.time.advance(TURN)
            wait_lines(self.app, upper=text)

    def test_an_anniversary_of_today_is_added_by_keyboard_announced_found_edited_and_deleted(self):
        calendar = self.open_calendar()
        self.time.advance(TURN - 2 * LOOK_UP)
        self.add(calendar, "party")
        self.gone(ADDING)
        self.wait_list(calendar, ("party", "毎", "11", "20", ""))
        self.time.advance(LOOK_UP)  # queried, but not yet next in rotation
        wait_lines(self.app, upper=TODAY)
        self.time.advance(LOOK_UP)
        wait_lines(self.app, upper="party")
        self.wait_turns(TODAY, "party")

        self.press(calendar, "検索")
        self.window(SEARCH)
        self.hand.key("Return")
        self.gone(SEARCH)
        calendar.wait(role="label", name="検索結果 (検索対象 1件)")
        self.wait_list(calendar, ("party", "毎", "11", "20", ""))

        self.hand.click(calendar.wait(role="cell", name="party"))
        self.press(calendar, "編集")
        self.window(EDITING)
        self.hand.type("feast")
        self.hand.key("Return")
        self.gone(EDITING)
        calendar.wait(role="label", name="2026年11月20日の記念日")
        self.wait_list(calendar, ("feast", "毎", "11", "20", ""))
        self.wait_turns("feast", TODAY)

        self.press(calendar, "削除")
        deletion = self.window(DELETION)
        deletion.wait(role="label", name="現在 0項目")
        self.press(deletion, "全選択")
        deletion.wait(role="label", name="現在 1項目")
        self.press(deletion, "削除")
        self.gone(DELETION)
        self.wait_list(calendar)
        self.wait_turns(TODAY, TODAY)

    def test_a_name_with_a_double_quote_is_reported_and_the_entry_stays(self):
        calendar = self.open_calendar()
        self.add(calendar, 'the "day"')
        box = self.app.wait(role="alert message", name="データベース書込みエラー", showing=True)
        text = "無効なデータが含まれているか、予期しないエラーが発生しました。"
        self.assertTrue(box.find(role="label", name=text), box.dump())
        self.session.windows.wait(name="データベース書込みエラー", pid=self.app.program.pid)
        self.hand.key("Return")
        self.app.wait_gone(role="alert message", showing=True)
        editor = self.window(ADDING)
        self.assertEqual(editor.wait(role="text", name="記念日の名前").text, 'the "day"')
        self.hand.key("Escape")
        self.gone(ADDING)
        self.wait_list(calendar)
        self.wait_turns(TODAY, TODAY)

    def test_the_main_window_goes_on_while_an_anniversary_is_typed(self):
        calendar = self.open_calendar()
        self.press(calendar, "追加")
        self.window(ADDING)
        self.time.advance(60000)
        wait_lines(self.app, lower="午後0時01分11秒")
        self.hand.click(main_window(self.app))
        self.app.wait(role="popup menu", name="メニュー")

    def test_a_search_that_fails_leaves_the_list(self):
        calendar = self.open_calendar()
        self.add(calendar, "party")
        self.gone(ADDING)
        self.press(calendar, "検索")
        search = self.window(SEARCH)
        self.hand.click(search.find_all(role="radio button", name="条件に入れる")[0])
        self.go_to(search, "記念日名")
        self.hand.type('x"')
        self.hand.key("Return")
        box = self.app.wait(role="alert message", name="Tickwell", showing=True)
        self.assertTrue(box.find(role="label", name=lambda text: text.startswith("実行時エラー\n")), box.dump())
        self.wait_list(calendar, ("party", "毎", "11", "20", ""))
        calendar.wait(role="label", name="2026年11月20日の記念日")


if __name__ == "__main__":
    unittest.main()
