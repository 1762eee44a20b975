# SPDX-License-Identifier: GPL-3.0-or-later
"""A start in real time, with nothing simulated."""

import re
import shutil
import subprocess
import time
import unittest
from datetime import datetime, timedelta, timezone

from driver.case import TickwellCase
from driver.tickwell import lines, start_tickwell, tickwell_command, wait_lines, write_settings
from driver.waiting import wait_for

OWN_ZONE = ["unshare", "--user", "--map-current-user", "--keep-caps", "--mount"]  # a private /etc/localtime
TOKYO = timezone(timedelta(hours=9))
READING = re.compile(r"(\d+):(\d\d):(\d\d)")


def second_of_day(reading):
    hours, minutes, seconds = map(int, READING.fullmatch(reading).groups())
    return (hours * 60 + minutes) * 60 + seconds


def can_have_a_zone_of_its_own():
    """Whether mount namespaces are available; some containers forbid them."""
    return subprocess.run([*OWN_ZONE, "true"], stderr=subprocess.DEVNULL, check=False).returncode == 0


class RealTime(TickwellCase):
    def test_the_clock_starts_and_runs(self):
        before = time.monotonic()
        styles = {"DisMode": "1", "TypeHour": "1", "TypeYear": "1"}
        app = start_tickwell(self.session, settings={"Digital": styles})
        wait_lines(app, upper="Tickwell Ver.2", lower="")
        _, first = wait_lines(app, lower=READING.fullmatch, timeout=60)
        # The start-up delay is part of the program; Qt's timers may fire 5 % early.
        self.assertGreaterEqual(time.monotonic() - before, 0.95 * 11)
        seen = {first}
        while len(seen) < 4:
            earlier = datetime.now(TOKYO)
            upper, lower = lines(app)
            later = datetime.now(TOKYO)
            seen.add(lower)
            days = (earlier - timedelta(seconds=11), earlier, later)
            self.assertIn(upper.split("(")[0], {f"{day.year}/{day.month}/{day.day}" for day in days})
            # Never ahead of the clock, and behind it only as far as on a machine under load.
            behind = (second_of_day(f"{later:%H:%M:%S}") - second_of_day(lower)) % 86400
            self.assertLessEqual(behind, 10 + (later - earlier).total_seconds())
        self.assertEqual(app.program.output(), "")

    @unittest.skipUnless(can_have_a_zone_of_its_own(), "this machine lets no program have a time zone of its own")
    def test_the_clock_follows_a_new_zone_of_the_machine(self):
        zone = self.session.directory / "localtime"
        shutil.copyfile("/usr/share/zoneinfo/Asia/Tokyo", zone)
        write_settings(self.session, {"Digital": {"DisMode": "1", "TypeHour": "1", "TypeYear": "1"}})
        command = [*OWN_ZONE, "sh", "-c", 'mount --bind "$0" /etc/localtime && exec env -u TZ "$@"', zone,
                   *tickwell_command(self.session)]
        app = self.session.wait_app(self.session.spawn(command))
        _, reading = wait_lines(app, lower=READING.fullmatch, timeout=60)
        self.assertLess(self.behind(reading, TOKYO), 60)
        shutil.copyfile("/usr/share/zoneinfo/Etc/GMT+5", zone)  # fourteen hours behind Tokyo
        there = timezone(timedelta(hours=-5))
        wait_for(lambda: self.behind(lines(app)[1], there) < 60, "the time of the other zone")

        def shows_day():
            day = datetime.now(there)
            return lines(app)[0].startswith(f"{day.year}/{day.month}/{day.day}(")
        wait_for(shows_day, "the date of the other zone")

    def behind(self, reading, zone):
        """Seconds by which the lower line is behind the clock of a zone."""
        return (second_of_day(f"{datetime.now(zone):%H:%M:%S}") - second_of_day(reading)) % 86400


if __name__ == "__main__":
    unittest.main()
