# SPDX-License-Identifier: GPL-3.0-or-later
"""The table of the old calendar: the tool reproduces it, and a second computation finds the same days."""

import os
import subprocess
import sys
import tempfile
import unittest
from datetime import date, timedelta
from importlib.util import find_spec
from pathlib import Path

TOOL = Path(os.environ["TICKWELL_MAKE_OLD_CALENDAR"])
TABLE = Path(os.environ["TICKWELL_OLD_CALENDAR_TABLE"])
PRINT_OLD_CALENDAR = os.environ["TICKWELL_PRINT_OLD_CALENDAR"]

TERMS = ("春分 清明 穀雨 立夏 小満 芒種 夏至 小暑 大暑 立秋 処暑 白露 "
         "秋分 寒露 霜降 立冬 小雪 大雪 冬至 小寒 大寒 立春 雨水 啓蟄").split()
BETWEEN_TERMS = {27: "土用の入り", 80: "入梅", 100: "半夏生", 117: "土用の入り", 207: "土用の入り", 297: "土用の入り"}
COUNTED = [("立春", -1, "節分"), ("立春", 87, "八十八夜"), ("立春", 209, "二百十日"), ("立春", 219, "二百二十日"),
           ("春分", -3, "彼岸の入り"), ("秋分", -3, "彼岸の入り")]


@unittest.skipUnless(find_spec("ephem") and find_spec("erfa"), "needs the packages python3-ephem and python3-erfa")
class OldCalendar(unittest.TestCase):
    def test_the_tool_makes_the_committed_table_again(self):
        with tempfile.TemporaryDirectory() as folder:
            made = Path(folder, "made.cpp")
            subprocess.run([sys.executable, TOOL, made], check=True)
            self.assertEqual(made.read_text("utf-8").splitlines(), TABLE.read_text("utf-8").splitlines())

    def test_a_second_computation_finds_the_same_for_every_day(self):
        from second_almanac import SecondAlmanac
        almanac = SecondAlmanac()
        names = names_of_days(almanac)
        expected = [f"{day}\t{iso_text(*old)}\t{names.get(day, '')}"
                    for day, old in sorted(almanac.old_dates().items()) if day.year <= 2100]
        run = subprocess.run([PRINT_OLD_CALENDAR], check=True, capture_output=True, encoding="utf-8")
        printed = run.stdout.splitlines()
        self.assertEqual(len(printed), (date(2101, 1, 1) - date(1900, 1, 1)).days)
        self.assertEqual([pair for pair in zip(printed, expected) if pair[0] != pair[1]], [])
        self.assertEqual(len(printed), len(expected))


def names_of_days(almanac):
    names = {}
    days_of = {name: almanac.days_of_longitude(15 * index) for index, name in enumerate(TERMS)}
    for name, days in days_of.items():
        names |= dict.fromkeys(days, name)
    for longitude, name in BETWEEN_TERMS.items():
        names |= dict.fromkeys(almanac.days_of_longitude(longitude), name)
    for term, later, name in COUNTED:
        names |= {day + timedelta(days=later): name for day in days_of[term]}
    return names


def iso_text(year, month, leap, day):
    return f"{year}-{month:02}{'+' if leap else ''}-{day:02}"


if __name__ == "__main__":
    unittest.main()
