# SPDX-License-Identifier: GPL-3.0-or-later
"""A day database with a million anniversaries: the windows keep responding, and memory use stays small.

The test does not read the list through accessibility, because the driver would walk all its rows. It waits for windows
on the screen, and counts the rows in the file."""

import re
import sqlite3
import threading
import unittest
from contextlib import closing
from datetime import date, timedelta
from pathlib import Path

from driver.answering import LONGEST, keeps_answering
from driver.calendar_hand import CALENDAR, CalendarHand
from driver.case import TickwellCase
from driver.tickwell import make_folder, start_tickwell, wait_on_screen
from driver.tool_windows import button, wait_for_hand
from driver.waiting import wait_for

ROWS = 1_000_000
MOST_MEMORY = 150_000_000  # bytes of proportional set size
SEARCH, DELETION, EDITING = "記念日の検索", "記念日の削除", "記念日の編集"
LONG = 300  # s, for a busy machine



def fill(today):
    """An SQL script that stores the rows, in all months but not for today or tomorrow, so that the list of the day is
    empty. Every tenth is by week, every eleventh is for every month."""
    taken = [today, today + timedelta(days=1)]
    days = [day for day in range(1, 29) if day not in [date.day for date in taken]]
    weeks = [code for code in (11, 22, 33, 44, 55) if code not in [week_code(date) for date in taken]]
    def one_of(values):
        return f"CASE i % {len(values)} " + " ".join(f"WHEN {n} THEN {value}" for n, value in enumerate(values)) + " END"
    return f"""
        WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < {ROWS})
        INSERT INTO Kinenbi("Name", "Year", "Month", "Day", "Week")
        SELECT '記念日その' || i, 0, CASE WHEN i % 11 THEN 1 + i % 12 ELSE 0 END,
               CASE WHEN i % 10 THEN {one_of(days)} ELSE 0 END, CASE WHEN i % 10 THEN 0 ELSE {one_of(weeks)} END FROM n"""


def week_code(date):
    return 10 * ((date.day - 1) // 7 + 1) + date.isoweekday() % 7 + 1


class Memory:
    """The maximum memory use of a process between construction and `end`."""

    def __init__(self, pid):
        self._rollup = Path(f"/proc/{pid}/smaps_rollup")
        self._ended = threading.Event()
        self._thread = threading.Thread(target=self._watch, daemon=True)
        self.most = 0
        self._thread.start()

    def _watch(self):
        while not self._ended.wait(0.05):
            try:
                found = re.search(r"^Pss:\s+(\d+) kB", self._rollup.read_text(encoding="ascii"), re.MULTILINE)
            except OSError:  # the program has ended
                return
            self.most = max(self.most, int(found[1]) * 1024)

    def end(self):
        self._ended.set()
        self._thread.join()
        return self.most


class ManyRows(TickwellCase):
    def setUp(self):
        super().setUp()
        self.folder = self.session.directory / "many"
        make_folder(self.folder)
        with closing(sqlite3.connect(self.folder / "DayDate.mdb")) as database:
            database.execute(fill(date.today()))
            database.commit()
        self.app = start_tickwell(self.session, folder=self.folder)
        self.main = wait_on_screen(self.session, self.app)
        self.hand = self.session.hand

    def count(self, condition="1"):
        with closing(sqlite3.connect(f"file:{self.folder}/DayDate.mdb?mode=ro", uri=True, timeout=LONG)) as database:
            return database.execute(f"SELECT count(*) FROM Kinenbi WHERE {condition}").fetchone()[0]

    def wait_open(self, title):
        return wait_for_hand(self.session, self.app, title)

    def wait_closed(self, title):
        wait_for(lambda: self.session.windows.find(title, self.app.program.pid) is None, f"the end of {title}", LONG)

    def answering(self):
        # A CPU whose caches and pipelines are shared with other jobs computes at half speed.
        return keeps_answering(self.session, self.app.program, self.main, limit=2 * LONGEST, computing=True)

    def find_all(self):
        self.hand.click(self.places["検索"])
        self.wait_open(SEARCH)
        self.hand.key("Return")
        self.wait_closed(SEARCH)
        self.wait_open(CALENDAR)

    def place(self, node):
        x, y, width, height = node.extents
        return x + width // 2, y + height // 2

    def test_a_million_anniversaries_are_searched_edited_and_deleted(self):
        memory = Memory(self.app.program.pid)
        with self.answering():
            calendar = CalendarHand(self.session, self.app).window
            button(calendar, "記念日の一覧を開く").press()
            table = calendar.wait(role="table", showing=True)
            self.places = {name: self.place(button(calendar, name)) for name in ("編集", "削除", "検索")}
            self.places["list"] = self.place(table)
            self.hand.key("Page_Down", "Page_Down", "Page_Up", "Page_Up")  # turns months
        with self.answering():
            self.find_all()
            self.hand.click(self.places["list"])
            self.hand.key("End", "Page_Up", "Home", "Page_Down", "x", "End")
        with self.answering():
            self.hand.click(self.places["編集"])
            self.wait_open(EDITING)
            self.hand.type("last")
            self.hand.key("Return")
            self.wait_closed(EDITING)
            self.assertEqual(self.count("Name = 'last'"), 1)
        with self.answering():
            self.find_all()
            self.hand.click(self.places["削除"])
            self.wait_open(DELETION)
            self.hand.key("End", "Home", "Tab", "space")  # ticks all
            self.hand.key("shift+Tab", "space", "Down", "space")  # unticks the first two
            self.hand.key("Return")
            self.wait_closed(DELETION)
            self.assertEqual(self.count(), 2)
        most = memory.end()
        print(f"{most / 1e6:.0f} MB of memory at most", flush=True)
        self.assertLess(most, MOST_MEMORY)


if __name__ == "__main__":
    unittest.main()
