# SPDX-License-Identifier: GPL-3.0-or-later
"""The windows that read anniversaries from files and write them to files, operated by mouse and keyboard."""

import datetime
import os
import sqlite3
import unittest
from contextlib import closing
from pathlib import Path

from driver.boxes import close_box
from driver.settings_case import SettingsCase, button, check, radio
from driver.tickwell import make_folder
from driver.waiting import wait_for

NOW = "2026-11-23T12:00:00"
READ, WRITE = "記念日の読込", "記念日の書出"
SPLIT = "表せない繰り返しは、今後1年分を1日ずつ取り込む"
CALENDAR = """BEGIN:VCALENDAR
VERSION:2.0
PRODID:-//test//test//EN
BEGIN:VEVENT
UID:1
DTSTART;VALUE=DATE:20260610
RRULE:FREQ=YEARLY
SUMMARY:結婚記念日
END:VEVENT
BEGIN:VEVENT
UID:2
DTSTART;VALUE=DATE:20260608
RRULE:FREQ=MONTHLY;BYDAY=2MO
SUMMARY:句会
END:VEVENT
BEGIN:VEVENT
UID:3
DTSTART;VALUE=DATE:20270310
SUMMARY:展覧会
END:VEVENT
BEGIN:VEVENT
UID:4
DTSTART;VALUE=DATE:20250115
RRULE:FREQ=MONTHLY;INTERVAL=6
SUMMARY:検診
END:VEVENT
BEGIN:VEVENT
UID:5
DTSTART;VALUE=DATE:20260505
RRULE:FREQ=YEARLY
SUMMARY:前からある
END:VEVENT
END:VCALENDAR
"""
OFFERED = [("結婚記念日", "毎年 6月10日", "新しい"), ("句会", "毎月 第2月曜", "新しい"), ("展覧会", "2027年3月10日", "新しい"),
           ("検診", "2025年1月15日", "取り込めません：6か月ごとの予定"), ("前からある", "毎年 5月5日", "すでにあります")]


class ExchangeWindows(SettingsCase):
    def setUp(self):
        super().setUp()
        self.folder = make_folder(self.session.home / "folder")
        with closing(sqlite3.connect(self.folder / "DayDate.mdb")) as database, database:
            database.execute("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('前からある',0,5,5,0)")
        self.start(folder=self.folder, wall=NOW)
        self.open()
        self.page("データベース")

    def stored(self):
        with closing(sqlite3.connect(self.folder / "DayDate.mdb")) as database:
            return database.execute("SELECT Name,Year,Month,Day,Week FROM Kinenbi ORDER BY id").fetchall()

    def days_off(self, *years):
        """The holidays of the table, and the Mondays after those on Sundays."""
        with closing(sqlite3.connect(self.folder / "DayDate.mdb")) as database:
            holidays = database.execute("SELECT Month,Day FROM Syukuzitu").fetchall()
        days = {datetime.date(year, *holiday) for year in years for holiday in holidays}
        return days | {day + datetime.timedelta(1) for day in days if day.isoweekday() == 7}

    def pass_time(self):
        """Work continues in timers of the program's own time."""
        self.time.advance(20)

    def choose_file(self, opener, title, path):
        self.click(button(opener))
        chooser = self.window(title)
        wait_for(lambda: "active" in chooser.states, "the keyboard focus in the file dialog")
        self.session.hand.type(str(path))
        self.session.hand.key("Return")

    def read(self, content, name="events.ics"):
        path = self.session.home / name
        path.write_text(content, encoding="utf-8")
        self.choose_file("記念日を読み込む", "記念日のファイル", path)
        return path

    def import_window(self):
        def found():
            self.pass_time()
            return self.app.find_all(role="label", name=lambda text: "、選択 " in text, showing=True)
        wait_for(found, "the sums of the entries")
        return self.app.wait(role="dialog", name=READ, showing=True)

    def sums(self, window):
        return window.wait(role="label", name=lambda text: "、選択 " in text, showing=True).name

    def wait_sums(self, window, text):
        def shown():
            self.pass_time()
            return self.sums(window) == text
        wait_for(shown, f"the sums {text}")

    def cells(self, window):
        return [tuple(row) for row in window.wait(role="table", name="取り込む記念日").table()]

    def picture(self, name):
        folder = os.environ.get("TICKWELL_PICTURES")
        if folder:
            self.session.screenshot(Path(folder) / name)

    def test_chosen_events_are_imported(self):
        self.picture("database_page.png")
        self.read(CALENDAR)
        window = self.import_window()
        self.wait_sums(window, "新しい 3件、すでにあります 1件、取り込めません 1件、選択 3件")
        self.assertEqual([row[1:] for row in self.cells(window)], OFFERED)
        self.picture("import.png")
        self.session.hand.key("space")  # the list has the focus: unticks the first entry
        self.wait_sums(window, "新しい 3件、すでにあります 1件、取り込めません 1件、選択 2件")
        self.click(button("全解除"), window=window)
        self.wait_sums(window, "新しい 3件、すでにあります 1件、取り込めません 1件、選択 0件")
        self.assertNotIn("enabled", window.wait(**button("取り込む")).states)
        self.click(button("全選択"), window=window)
        self.wait_sums(window, "新しい 3件、すでにあります 1件、取り込めません 1件、選択 3件")
        self.click(check(SPLIT), window=window)
        self.wait_sums(window, "新しい 5件、すでにあります 1件、取り込めません 0件、選択 5件")
        self.assertEqual([row[1:] for row in self.cells(window)][3:5],
                         [("検診", "2027年1月15日", "新しい"), ("検診", "2027年7月15日", "新しい")])
        self.click(check(SPLIT), window=window)
        self.wait_sums(window, "新しい 3件、すでにあります 1件、取り込めません 1件、選択 3件")
        self.click(button("取り込む"), window=window)
        self.pass_time()
        close_box(self.app, "記念日 3件を取り込みました。")
        self.assertEqual(self.stored(), [("前からある", 0, 5, 5, 0), ("結婚記念日", 0, 6, 10, 0), ("句会", 0, 0, 0, 22),
                                         ("展覧会", 2027, 3, 10, 0)])
        self.app.wait_gone(role="dialog", name=READ, showing=True)

    def test_cancelling_imports_nothing(self):
        before = self.stored()
        self.read(CALENDAR)
        window = self.import_window()
        self.wait_sums(window, "新しい 3件、すでにあります 1件、取り込めません 1件、選択 3件")
        self.click(button("ｷｬﾝｾﾙ"), window=window)
        self.app.wait_gone(role="dialog", name=READ, showing=True)
        self.assertEqual(self.stored(), before)

    def test_a_bad_file_is_named(self):
        path = self.read("BEGIN:VCARD\nFN:a\n", "contact.vcf")

        def told():
            self.pass_time()
            return self.app.find_all(role="alert message", showing=True)
        wait_for(told, "a message")
        close_box(self.app, f"記念日を読み込めません。\n{path}\nファイルが途中で終わっています（2行目の連絡先）。")
        self.app.wait_gone(role="dialog", name=READ, showing=True)

    def test_anniversaries_and_days_off_are_written(self):
        self.click(button("記念日を書き出す"))
        window = self.window(WRITE)
        self.picture("export.png")
        self.click(check("祝日と振替休日"), radio("CSV（.csv）"), window=window)
        self.picture("export_ticked.png")
        target = self.session.home / "out.csv"
        self.click(button("書き出す..."), window=window)
        chooser = self.window("記念日の書き出し先")
        wait_for(lambda: "active" in chooser.states, "the keyboard focus in the file dialog")
        self.session.hand.key("ctrl+a")
        self.session.hand.type(str(target))
        self.session.hand.key("Return")

        def written():
            self.pass_time()
            return target.exists()
        wait_for(written, "the file")
        self.pass_time()
        close_box(self.app, f"記念日 1件、祝日 {len(self.days_off(2026, 2027))}件を書き出しました。")
        lines = target.read_bytes().decode("utf-8-sig").splitlines()
        self.assertEqual(lines[:2], ["記念日,年,月,日,第何週,曜日", "前からある,,5,5,,"])
        self.assertIn("勤労感謝の日,2026,11,23,,", lines)


if __name__ == "__main__":
    unittest.main()
