# SPDX-License-Identifier: GPL-3.0-or-later
"""Today's anniversaries and holidays, alternating with the date on the upper line."""

import sqlite3
import unittest

from driver.case import TickwellCase
from driver.tickwell import make_folder, start_tickwell, wait_lines
from driver.virtual_time import VirtualTime

START_UP_DELAY = 11000  # ms
TURN = 10000


class Announcement(TickwellCase):
    def setUp(self):
        super().setUp()
        self.folder = make_folder(self.session.directory / "days")

    def add(self, *anniversaries):
        """Inserts anniversaries (name, year, month, day, week), as another program would."""
        with sqlite3.connect(self.folder / "DayDate.mdb") as database:
            database.executemany('INSERT INTO "Kinenbi"("Name","Year","Month","Day","Week") VALUES (?,?,?,?,?)',
                                 anniversaries)
        database.close()

    def start(self, wall):
        self.time = VirtualTime(wall)
        self.addCleanup(self.time.close)
        self.app = start_tickwell(self.session, folder=self.folder, virtual_time=self.time)
        wait_lines(self.app, upper="Tickwell Ver.2")
        self.time.advance(START_UP_DELAY)

    def wait_turns(self, *texts):
        for text in texts:
            self.time.advance(TURN)
            wait_lines(self.app, upper=text)

    def test_two_anniversaries_and_a_holiday_take_turns_with_the_date(self):
        self.add(("結婚記念日", 0, 11, 23, 0), ("給料日 & <b>", 2026, 0, 23, 0), ("別の日", 0, 11, 24, 0))
        self.start("2026-11-23T09:00:00")
        wait_lines(self.app, upper="平成38年11月23日(月曜日)")
        self.time.advance(TURN - 1)
        wait_lines(self.app, upper="平成38年11月23日(月曜日)")
        self.time.advance(1)
        wait_lines(self.app, upper="結婚記念日")
        self.wait_turns("給料日 & <b>", "勤労感謝の日", "平成38年11月23日(月曜日)", "結婚記念日")

    def test_midnight_brings_the_names_of_the_new_day(self):
        self.add(("昨日", 0, 11, 22, 0), ("今日", 0, 11, 23, 0))
        self.start("2026-11-22T23:59:30")
        wait_lines(self.app, upper="平成38年11月22日(日曜日)")
        self.wait_turns("昨日")          # 23:59:51
        self.wait_turns("今日")          # 0:00:01, the new day starts with its first name
        wait_lines(self.app, lower="午前0時00分01秒")
        self.wait_turns("勤労感謝の日", "平成38年11月23日(月曜日)", "今日")

    def test_a_day_with_nothing_shows_the_date_alone(self):
        self.start("2026-11-20T12:00:00")
        self.wait_turns(*["平成38年11月20日(金曜日)"] * 3)

    def test_the_third_monday_is_announced_on_the_second_tuesday(self):
        self.add(("第三月曜", 0, 0, 0, 32))
        self.start("2026-11-10T12:00:00")
        self.wait_turns("第三月曜", "平成38年11月10日(火曜日)")
        self.time.set_wall("2026-11-16T12:00:00")
        self.wait_turns("平成38年11月16日(月曜日)", "平成38年11月16日(月曜日)")

    def test_a_database_that_breaks_is_reported_once_and_the_time_goes_on(self):
        self.start("2026-11-20T23:59:40")
        with sqlite3.connect(self.folder / "DayDate.mdb") as database:
            database.execute('ALTER TABLE "Kinenbi" RENAME TO "Gone"')
        database.close()
        self.time.advance(60000)
        wait_lines(self.app, lower="午前0時00分51秒")
        box = self.app.wait(role="alert message", name="Tickwell")
        self.assertTrue(box.find(role="label", name=lambda text: text.startswith("実行時エラー\n")), box.dump())
        self.assertEqual(len(self.app.find_all(role="alert message")), 1)


if __name__ == "__main__":
    unittest.main()
