# SPDX-License-Identifier: GPL-3.0-or-later
"""The calendar: months, marks set with the mouse, and which of them persist."""

import sqlite3
import unittest

from driver import pictures
from driver.case import TickwellCase
from driver.hand import settled_extents
from driver.tickwell import main_window, make_folder, start_tickwell, wait_lines, wait_on_screen
from driver.virtual_time import VirtualTime
from driver.waiting import wait_for

CALENDAR = "カレンダー"
TABLES = ("Holiday", "Halfday", "Usuallyday")
STRONG = 60  # minimum difference between two channels that counts as a colour


class Calendar(TickwellCase):
    def setUp(self):
        super().setUp()
        self.folder = make_folder(self.session.directory / "days")

    def start(self, wall="1998-10-15T09:00:00"):
        self.time = VirtualTime(wall)
        self.addCleanup(self.time.close)
        self.app = start_tickwell(self.session, folder=self.folder, virtual_time=self.time)
        wait_lines(self.app, upper="Tickwell Ver.2")
        wait_on_screen(self.session, self.app)

    def open(self):
        self.session.hand.click(main_window(self.app))
        self.session.hand.click(self.app.wait(role="popup menu", name="メニュー").wait(name=CALENDAR))
        self.window = self.app.wait(role="dialog", name=CALENDAR, showing=True)
        self.session.windows.wait(name=CALENDAR, pid=self.app.program.pid)

    def close(self):
        self.session.hand.key("Escape")
        self.app.wait_gone(role="dialog", name=CALENDAR, showing=True)

    def day(self, day):
        """The cell of a day of October 1998."""
        return self.window.wait(name=lambda name: name.startswith(f"1998年10月{day}日 "), showing=True)

    def wait_spoken(self, day, name):
        wait_for(lambda: self.day(day).name == name, f"day {day} as {name}")

    def choose(self, mode):
        option = self.window.wait(role="radio button", name=mode)
        x, y, _, height = settled_extents(option)
        self.session.hand.click((x + 8, y + height // 2))
        wait_for(lambda: "checked" in option.states, f"mode {mode}")

    def wait_heading(self, heading):
        self.window.wait(role="label", name=heading, showing=True)

    def colour(self, day):
        """The colour of the day's number: "red", "blue" or "black"."""
        x, y, width, height = self.day(day).extents
        picture = pictures.grab(self.session.display, (x + 5, y + 4, width - 10, height - 8))
        pixels = list(picture.getdata())
        if any(red > blue + STRONG for red, _, blue in pixels):
            return "red"
        return "blue" if any(blue > red + STRONG for red, _, blue in pixels) else "black"

    def colours(self):
        self.session.hand.move((1200, 1000))  # a button under the pointer is highlighted
        return [self.colour(day) for day in range(1, 32)]

    def marks(self):
        with sqlite3.connect(self.folder / "DayDate.mdb") as database:
            rows = [(table, date) for table in TABLES
                    for (date,) in database.execute(f'SELECT "Date" FROM "{table}" ORDER BY "Date"')]
        database.close()
        return rows

    def put(self, table, *dates):
        with sqlite3.connect(self.folder / "DayDate.mdb") as database:
            database.executemany(f'INSERT INTO "{table}"("Date") VALUES (?)', [(date,) for date in dates])
        database.close()

    def test_marks_set_by_mouse_are_there_again(self):
        self.start()
        self.open()
        before = self.colours()
        self.choose("休日設定")
        self.session.hand.click(self.day(6))
        self.session.hand.click(self.day(11))
        self.choose("半日設定")
        self.session.hand.click(self.day(7))
        self.choose("通常表示")
        self.wait_spoken(6, "1998年10月6日 火曜日、休日")
        self.wait_spoken(7, "1998年10月7日 水曜日、半日")
        self.wait_spoken(11, "1998年10月11日 日曜日、平日")
        expected = [("Holiday", "1998-10-06"), ("Halfday", "1998-10-07"), ("Usuallyday", "1998-10-11")]
        wait_for(lambda: self.marks() == expected, "the marks stored")
        marked = self.colours()
        wanted = before[:5] + ["red", "blue"] + before[7:10] + ["black"] + before[11:]
        self.assertEqual(marked, wanted)
        self.close()
        self.open()
        self.assertEqual(self.colours(), marked)
        self.assertEqual(self.marks(), expected)

    def test_the_colours_of_a_month(self):
        self.start()
        self.open()
        expected = ["red" if day % 7 == 4 else "blue" if day % 7 == 3 else "black" for day in range(1, 32)]
        self.assertEqual(self.colours(), expected)

    def test_killed_while_marking_leaves_the_old_marks(self):
        self.put("Holiday", "1998-10-20")
        self.start()
        self.open()
        self.choose("休日設定")
        self.session.hand.click(self.day(6))
        self.wait_spoken(6, "1998年10月6日 火曜日、休日")
        self.app.program.kill()
        self.assertEqual(self.marks(), [("Holiday", "1998-10-20")])

    def test_opening_and_closing_store_nothing(self):
        self.start("1998-11-15T09:00:00")  # a month with two national holidays on weekdays
        self.open()
        self.choose("休日設定")
        self.close()
        self.open()
        self.close()
        self.assertEqual(self.marks(), [])

    def test_it_opens_near_the_window_and_once(self):
        self.start()
        self.open()
        x, y, _, _ = self.window.extents
        self.assertTrue(0 <= x < 100 and 40 <= y < 140, (x, y))
        self.session.hand.key("Page_Down")
        self.wait_heading("1998年（平成10年）11月")
        self.open()
        self.wait_heading("1998年（平成10年）11月")
        self.assertEqual(len(self.app.find_all(role="dialog", name=CALENDAR, showing=True)), 1)

    def test_keys_lead_through_months_and_days(self):
        self.start()
        self.open()
        self.session.hand.key("Page_Down", "Page_Down", "Page_Up")
        self.wait_heading("1998年（平成10年）11月")
        self.session.hand.key("shift+Page_Up")
        self.wait_heading("1997年（平成9年）11月")
        self.session.hand.key("Right", "Return")
        self.window.wait(name=lambda name: name.startswith("1997年11月16日"),
                         which=lambda node: "checked" in node.states)

    def test_the_last_year_is_reported_and_the_calendar_waits(self):
        self.start("2100-12-05T09:00:00")
        self.open()
        self.session.hand.click(self.window.wait(role="push button", name="次の月"))
        box = self.app.wait(role="alert message", name="ｶﾚﾝﾀﾞｰ", showing=True)
        self.assertTrue(box.find(role="label", name="これ以後の年は表示できません。"), box.dump())
        self.session.hand.key("Return")
        self.app.wait_gone(role="alert message", showing=True)
        self.wait_heading("2100年（平成112年）12月")

    def test_marks_are_deleted_after_a_question(self):
        self.put("Holiday", "1998-09-30", "1998-10-06", "1998-11-01")
        self.start()
        self.open()
        for keys, left in ((["Return"], ["1998-09-30", "1998-10-06", "1998-11-01"]),  # Cancel is the default
                           (["Escape"], ["1998-09-30", "1998-10-06", "1998-11-01"]),
                           (["alt+n"], ["1998-09-30", "1998-11-01"]),
                           (["alt+y"], ["1998-11-01"])):
            with self.subTest(keys=keys):
                self.session.hand.click(self.window.wait(role="push button", name="休/半日削除"))
                box = self.app.wait(role="alert message", name="ﾃﾞｰﾀ削除", showing=True)
                self.assertTrue(box.find(role="label", name="今月までのデーターも削除しますか？"), box.dump())
                windows = self.session.windows
                question, calendar = windows.wait(name="ﾃﾞｰﾀ削除"), windows.wait(name=CALENDAR)
                windows.close_window(calendar)  # refused while the question is open
                windows.raise_window(calendar)
                wait_for(lambda: windows.is_above(question, calendar), "the question above its window")
                self.session.hand.key(*keys)
                self.app.wait_gone(role="alert message", showing=True)
                self.assertTrue(self.window.showing)
                wait_for(lambda: self.marks() == [("Holiday", date) for date in left], f"{left} left")

    def test_the_panel_lists_the_days_anniversaries(self):
        with sqlite3.connect(self.folder / "DayDate.mdb") as database:
            database.execute('INSERT INTO "Kinenbi"("Name","Year","Month","Day","Week") VALUES (?,?,?,?,?)',
                             ("結婚記念日", 0, 10, 20, 0))
        database.close()
        self.start()
        self.open()
        self.session.hand.click(self.window.wait(role="push button", name="記念日の一覧を開く"))
        self.window.wait(role="label", name="1998年10月15日の記念日", showing=True)
        self.session.hand.click(self.day(20))
        self.window.wait(role="label", name="1998年10月20日の記念日", showing=True)
        self.window.wait(role="label", name="ﾃﾞｰﾀ件数 1件", showing=True)
        self.window.wait(name="結婚記念日", showing=True)


if __name__ == "__main__":
    unittest.main()
