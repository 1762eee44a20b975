# SPDX-License-Identifier: GPL-3.0-or-later
"""One start in real time, with nothing turned by hand: what users see."""

import re
import time
import unittest
from datetime import datetime, timedelta, timezone

from driver.case import TickwellCase
from driver.tickwell import lines, start_tickwell, wait_lines

TOKYO = timezone(timedelta(hours=9))
READING = re.compile(r"(\d+):(\d\d):(\d\d)")


def second_of_day(reading):
    hours, minutes, seconds = map(int, READING.fullmatch(reading).groups())
    return (hours * 60 + minutes) * 60 + seconds


class RealTime(TickwellCase):
    def test_the_clock_starts_and_runs(self):
        before = time.monotonic()
        styles = {"DisMode": "1", "TypeHour": "1", "TypeYear": "1"}
        app = start_tickwell(self.session, settings={"Digital": styles})
        wait_lines(app, upper="Tickwell Ver.2", lower="")
        _, first = wait_lines(app, lower=READING.fullmatch, timeout=60)
        self.assertGreaterEqual(time.monotonic() - before, 10.9)  # the start-up delay is part of the program
        seen = {first}
        while len(seen) < 4:
            earlier = datetime.now(TOKYO)
            upper, lower = lines(app)
            later = datetime.now(TOKYO)
            seen.add(lower)
            days = (earlier - timedelta(seconds=11), earlier, later)
            self.assertIn(upper.split("(")[0], {f"{day.year}/{day.month}/{day.day}" for day in days})
            # Not ahead of the clock, and behind it by no more than a machine under load may be.
            behind = (second_of_day(f"{later:%H:%M:%S}") - second_of_day(lower)) % 86400
            self.assertLessEqual(behind, 10 + (later - earlier).total_seconds())
        self.assertEqual(app.program.output(), "")


if __name__ == "__main__":
    unittest.main()
