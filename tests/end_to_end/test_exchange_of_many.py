# SPDX-License-Identifier: GPL-3.0-or-later
"""A hundred thousand anniversaries through the windows: progress, and cancelling that leaves nothing behind.

The lists are not read through accessibility, because the driver would walk all their rows."""

import os
import signal
import unittest

from driver.exchange_case import READ, WRITE, ExchangeCase
from driver.processes import processes_of
from driver.settings_case import button, radio
from driver.waiting import wait_for

ROWS = 100_000
SUMS = f"新しい {ROWS}件、すでにあります 0件、取り込めません 0件、選択 {ROWS}件"
HELPER = "tickwell-ical"
UNTIL_VISIBLE = 600  # ms of the program's time
SOME_SLICES = 100  # ms


def days():
    """Month and day of each row, and its number."""
    return [(1 + n % 12, 1 + n % 28, n) for n in range(ROWS)]


def table():
    return "記念日,年,月,日,第何週,曜日\r\n" + "".join(f"記念日{n},,{month},{day},,\r\n" for month, day, n in days())


def calendar():
    events = "".join(f"BEGIN:VEVENT\r\nUID:{n}\r\nDTSTART;VALUE=DATE:2026{month:02}{day:02}\r\nRRULE:FREQ=YEARLY\r\n"
                     f"SUMMARY:記念日{n}\r\nEND:VEVENT\r\n" for month, day, n in days())
    return f"BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//test//test//EN\r\n{events}END:VCALENDAR\r\n"


class ExchangeOfMany(ExchangeCase):
    def dialog_of(self, title):
        return wait_for(lambda: next((window for window in self.app.children if window.name == title), None), title)

    def parts(self, window, **features):
        """Its descendants with these features, without those of tables."""
        return [part for child in window.children if child.role != "table" for part in child.matching(**features)]

    def wait_part(self, window, **features):
        def found():
            self.pass_time()
            return self.parts(window, **features)
        return wait_for(found, str(features))[0]

    def wait_cancelled(self, window, caption):
        """Waits until the work can be begun again. No time passes until the key has arrived: the work could end first."""
        def stopped():
            return all("enabled" not in part.states for part in self.parts(window, **button("中止")))
        wait_for(stopped, "the key that cancels")
        self.wait_part(window, **button(caption), which=lambda each: "enabled" in each.states)

    def wait_progress(self, window, caption):
        """Waits for the bar; checks that it can be cancelled with the keyboard."""
        self.time.advance(UNTIL_VISIBLE)
        bar = wait_for(lambda: self.parts(window, role="progress bar", name=caption, showing=True), caption)[0]
        stop, = self.parts(window, **button("中止"))
        wait_for(lambda: "focused" in stop.states, "the focus on the button that cancels")
        return bar

    def wait_offer(self):
        window = self.dialog_of(READ)
        self.wait_part(window, role="label", name=SUMS, showing=True)
        return window

    def files(self):
        return sorted(path.name for path in self.session.home.iterdir())

    def test_reading_is_cancelled(self):
        self.read(calendar())
        helper = wait_for(lambda: processes_of(self.session, HELPER), HELPER)[0]
        os.kill(helper, signal.SIGSTOP)
        window = self.dialog_of(READ)
        bar = self.wait_progress(window, "読み込んでいます")
        self.assertTrue(0 <= bar.value < 60, bar.value)  # the helper's part of the work
        self.picture("reading_progress.png")
        self.session.hand.key("space")
        self.wait_closed(READ)
        wait_for(lambda: not processes_of(self.session, HELPER), f"the end of {HELPER}")
        self.assertEqual(self.stored(), [("前からある", 0, 5, 5, 0)])

    def test_all_rows_are_imported_or_none(self):
        self.read(table(), "days.csv")
        window = self.wait_offer()
        before = sorted(path.name for path in self.folder.iterdir())
        place = self.parts(window, **button("取り込む"))[0]
        self.session.hand.click(place)
        self.time.advance(UNTIL_VISIBLE)
        self.session.hand.key("space")  # 中止 has the focus
        self.wait_cancelled(window, "取り込む")
        self.assertEqual(self.stored(), [("前からある", 0, 5, 5, 0)])
        self.assertEqual(sorted(path.name for path in self.folder.iterdir()), before)
        self.session.hand.click(place)
        self.close_box(f"記念日 {ROWS}件を取り込みました。")
        self.assertEqual(self.stored()[1:], [(f"記念日{n}", 0, month, day, 0) for month, day, n in days()])

    def test_all_rows_are_exported_or_none(self):
        self.read(table(), "days.csv")
        self.session.hand.click(self.parts(self.wait_offer(), **button("取り込む"))[0])
        self.close_box(f"記念日 {ROWS}件を取り込みました。")
        before = self.files()
        self.click(button("記念日を書き出す"))
        window = self.window(WRITE)
        self.click(radio("CSV（.csv）"), window=window)
        target = self.session.home / "out.csv"
        self.write(window, target)
        self.time.advance(SOME_SLICES)
        self.session.hand.key("Escape")
        self.wait_cancelled(window, "書き出す...")
        self.time.advance(UNTIL_VISIBLE)
        self.assertEqual(self.files(), before)
        self.write(window, target)
        self.close_box(f"記念日 {ROWS + 1}件を書き出しました。")
        lines = target.read_bytes().decode("utf-8-sig").split("\r\n")
        self.assertEqual(lines[1], "前からある,,5,5,,")
        self.assertEqual(lines[2:-1], table().split("\r\n")[1:-1])


if __name__ == "__main__":
    unittest.main()
