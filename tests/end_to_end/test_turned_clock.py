# SPDX-License-Identifier: GPL-3.0-or-later
"""Everything that can happen to a clock while the program runs: suspend, a set clock, another zone, unusual dates, a
wrapping counter. Date and time follow with their next refresh, and each hour is struck once."""

import unittest

from driver.always_on import AlwaysOn
from driver.tickwell import wait_lines
from driver.waiting import wait_for

HOUR = 3_600_000  # ms
TIME_TURN, DATE_TURN = 1500, 10_500  # ms; half a second more, so that no second is just beginning


class TurnedClock(AlwaysOn):
    def follow(self):
        """Checks that the time is correct within the next second, and the date within ten."""
        self.machine.advance(TIME_TURN)
        wait_lines(self.app, lower=self.machine.clock)
        self.machine.advance(DATE_TURN - TIME_TURN)
        self.check_lines()

    def test_nine_hours_of_sleep_over_midnight(self):
        self.start("2026-11-20T22:10:00")
        self.machine.suspend(9 * HOUR)
        self.follow()
        self.check_silence()  # missed strikes are not made up
        self.pass_half_hours(3)

    def test_waking_in_the_minute_of_a_chime(self):
        self.start("2026-11-20T22:10:00")
        self.machine.suspend(9 * HOUR - 10 * 60_000)  # 7:00:11
        self.machine.advance(TIME_TURN)
        self.check_chime()
        self.pass_half_hours(2)

    def test_set_back_an_hour_is_struck_again(self):
        self.start("2026-11-20T11:50:00")
        self.pass_half_hours(1)
        self.machine.advance(10 * 60_000)
        self.machine.set_wall("2026-11-20T11:40:00")
        self.follow()
        self.pass_half_hours(2)

    def test_set_to_other_days(self):
        self.start("2026-11-20T11:50:00")
        for wall in ("2026-11-19T11:50:00", "1998-10-03T03:10:00", "2100-12-31T23:40:00", "2026-11-20T11:50:00"):
            with self.subTest(wall):
                self.machine.set_wall(wall)
                self.follow()
                self.pass_half_hours(1)

    def test_another_zone(self):
        self.start("2026-11-20T09:40:00")
        for zone in ("America/New_York", "Asia/Kolkata", "Pacific/Kiritimati", "Asia/Tokyo"):
            with self.subTest(zone):
                self.machine.set_zone(zone)
                self.follow()
                self.pass_half_hours(2)
        self.assertEqual(self.output(), [])

    def test_summer_time_begins_and_ends(self):
        self.start("2026-11-20T09:40:00")
        self.machine.set_zone("America/New_York")
        for wall in ("2027-03-14T00:40:00", "2027-11-07T00:40:00"):
            with self.subTest(wall):
                self.machine.set_wall(wall)
                self.follow()
                self.pass_half_hours(7)

    def test_the_ends_of_months_and_years(self):
        self.start("2027-12-31T23:40:00")
        self.pass_half_hours(2)
        for wall in ("2028-02-28T23:40:00", "2028-02-29T23:40:00", "2027-02-28T23:40:00", "2028-04-30T23:40:00"):
            with self.subTest(wall):
                self.machine.set_wall(wall)
                self.follow()
                self.pass_half_hours(2)

    def test_the_counter_turns_at_31_and_at_32_bits(self):
        for turn in (2**31, 2**32):
            with self.subTest(turn):
                self.start("2026-11-20T11:50:00", tick=turn - HOUR)
                self.pass_half_hours(4)
                self.sound.close()
                self.app.program.stop()

    def test_twelve_strikes_are_cut_off_after_half_a_minute(self):
        self.start("2026-11-20T11:59:40", at_pace=True)
        self.machine.advance(9500)
        wait_for(self.is_sounding, "the chime")
        self.machine.advance(29_000)
        self.assertTrue(self.is_sounding())
        self.machine.advance(TIME_TURN)
        wait_for(lambda: not self.is_sounding(), "its end")
        self.assertLess(len(self.sound.heard()), len(self.strike * 12))


if __name__ == "__main__":
    unittest.main()
