# SPDX-License-Identifier: GPL-3.0-or-later
"""The windows that read anniversaries from files and write them to files, operated by mouse and keyboard."""

import datetime
import sqlite3
import unittest
from contextlib import closing

from driver.exchange_case import READ, WRITE, ExchangeCase
from driver.settings_case import button, check, radio

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
# What the cells tell a screen reader: the name's cell tells the row.
OFFERED = [("結婚記念日、毎年 6月10日、取り込む", "毎年 6月10日", "新しい"), ("句会、毎月 第2月曜、取り込む", "毎月 第2月曜", "新しい"),
           ("展覧会、2027年3月10日、取り込む", "2027年3月10日", "新しい"),
           ("検診、2025年1月15日、取り込めません：6か月ごとの予定", "2025年1月15日", "取り込めません：6か月ごとの予定"),
           ("前からある、毎年 5月5日、すでにあります", "毎年 5月5日", "すでにあります")]


class ExchangeWindows(ExchangeCase):
    def days_off(self, *years):
        """The holidays of the table, and the Mondays after those on Sundays."""
        with closing(sqlite3.connect(self.folder / "DayDate.mdb")) as database:
            holidays = database.execute("SELECT Month,Day FROM Syukuzitu").fetchall()
        days = {datetime.date(year, *holiday) for year in years for holiday in holidays}
        return days | {day + datetime.timedelta(1) for day in days if day.isoweekday() == 7}

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
                         [("検診、2027年1月15日、取り込む", "2027年1月15日", "新しい"),
                          ("検診、2027年7月15日、取り込む", "2027年7月15日", "新しい")])
        self.click(check(SPLIT), window=window)
        self.wait_sums(window, "新しい 3件、すでにあります 1件、取り込めません 1件、選択 3件")
        self.click(button("取り込む"), window=window)
        self.close_box("記念日 3件を取り込みました。")
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
        self.close_box(f"記念日を読み込めません。\n{path}\nファイルが途中で終わっています（2行目の連絡先）。")
        self.app.wait_gone(role="dialog", name=READ, showing=True)

    def test_anniversaries_and_days_off_are_written(self):
        self.click(button("記念日を書き出す"))
        window = self.window(WRITE)
        self.picture("export.png")
        self.click(check("祝日と振替休日"), radio("CSV（.csv）"), window=window)
        self.picture("export_ticked.png")
        target = self.session.home / "out.csv"
        self.write(window, target)
        self.close_box(f"記念日 1件、祝日 {len(self.days_off(2026, 2027))}件を書き出しました。")
        lines = target.read_bytes().decode("utf-8-sig").splitlines()
        self.assertEqual(lines[:2], ["記念日,年,月,日,第何週,曜日", "前からある,,5,5,,"])
        self.assertIn("勤労感謝の日,2026,11,23,,", lines)


if __name__ == "__main__":
    unittest.main()
