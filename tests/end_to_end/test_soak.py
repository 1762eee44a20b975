# SPDX-License-Identifier: GPL-3.0-or-later
"""The program over days of virtual time with every timer delivered: each chime is heard, date and clock are right every
half hour, and at the end it holds no more resources than after the first hour.

TICKWELL_SOAK_DAYS is the number of days; the default is 1. Seven days cover every event of a clock.
"""

import os
import unittest

from driver.always_on import AlwaysOn
from driver.footprint import anonymous_memory, footprint
from driver.tool_windows import choose
from driver.waiting import steady, wait_for

DAYS = int(os.environ.get("TICKWELL_SOAK_DAYS", "1"))
MOST_GROWN = 1.02
HOUR = 3_600_000  # ms
HALF_HOURS = 48  # per day
BEGINNING = "2027-12-31T10:10:00"
TURN_OF_THE_COUNTER = 2**31 - 12 * HOUR  # the counter's sign changes in the first night

WINDOWS = (("カレンダー", "カレンダー"), ("環境設定", "環境設定"), ("ﾍﾙﾌﾟ", "Tickwell ヘルプ"),
           ("バージョン情報", "Tickwellのﾊﾞｰｼﾞｮﾝ情報"))  # menu items, and the titles of the windows that they open
OTHER_FUNCTIONS = ("Windows時計", "ﾒﾓﾘｰ監視", "ﾊﾞｯﾃﾘｰ監視")
CLOCK = "ﾃﾞｼﾞﾀﾙ時計"


class Soak(AlwaysOn):
    def use(self, times=1):
        """What a user does in a day: each function and each window. The windows come last, because the program releases
        memory after a window is closed."""
        for item in (*OTHER_FUNCTIONS, CLOCK):
            choose(self.session, self.app, item)
            self.machine.advance(11_000)
        for item, title in WINDOWS * times:
            choose(self.session, self.app, item)
            self.session.windows.wait(name=title, pid=self.app.program.pid)
            self.app.wait(name=title, showing=True, which=lambda node: "active" in node.states)
            self.session.hand.key("Escape")
            self.app.wait_gone(name=title, showing=True)

    def at_rest(self):
        """Its resources after the last sound and its helper have ended and closed windows are deleted."""
        wait_for(lambda: not self.is_sounding(), "the end of the chime")
        return steady(lambda: footprint(self.app, self.session.display), "the resources at rest", rest=1.0)

    def memory(self):
        """Its memory after the memory of closed windows is released, two seconds after the last one."""
        return steady(lambda: anonymous_memory(self.app.program.pid), "the memory at rest", rest=3.0)

    def test_days_leave_nothing_behind(self):
        self.start(BEGINNING, TURN_OF_THE_COUNTER)
        self.use(times=3)  # creates everything that is created once
        self.pass_half_hours(2)
        self.use(times=3)
        memory = self.memory()  # waits until closed windows have freed their pixmaps, which at_rest() counts
        before = self.at_rest()
        for day in range(DAYS):
            with self.subTest(day=day + 1):
                getattr(self, f"pass_day_{day % 7 + 1}")()
                self.use()
                self.tell(day + 1, memory)
        wait_for(lambda: self.at_rest() == before, f"{before}; it is {self.at_rest()}")
        self.assertLessEqual(self.memory(), memory * MOST_GROWN)
        self.check_silence()
        self.assertEqual(self.output(), [])
        self.session.windows.close_window(self.session.windows.wait(name="Tickwell", pid=self.app.program.pid))
        self.assertEqual(self.app.program.wait_end(), 0)

    def tell(self, day, memory):
        now = self.memory()
        print(f"\nday {day}: {self.strikes} strikes, {now >> 10} KiB, {100 * (now / memory - 1):+.2f} %", flush=True)

    def pass_day_1(self):
        """The end of the year, and the counter's wrap at 31 bits."""
        self.pass_half_hours(HALF_HOURS)

    def pass_day_2(self):
        """Into a leap day."""
        self.machine.set_wall("2028-02-28T10:10:10.500")
        self.pass_half_hours(HALF_HOURS)

    def pass_day_3(self):
        """Out of the leap day, at the end of a month."""
        self.machine.set_wall("2028-02-29T10:10:10.500")
        self.pass_half_hours(HALF_HOURS)

    def pass_day_4(self):
        """Suspended at night."""
        self.pass_half_hours(25)
        self.machine.advance(10 * 60_000)
        self.machine.suspend(9 * HOUR)
        self.pass_half_hours(6)

    def pass_day_5(self):
        """A clock that is set back and forward."""
        for back_or_forth in ("2028-03-03T11:50:00.500", "2028-03-03T08:10:00.500", "2028-03-04T20:10:00.500",
                              "2027-12-25T03:40:00.500"):
            self.pass_half_hours(HALF_HOURS // 4)
            self.machine.advance(10 * 60_000)
            self.machine.set_wall(back_or_forth)

    def pass_day_6(self):
        """A move to a zone where summer time begins, and back."""
        self.machine.set_zone("America/New_York")
        self.machine.set_wall("2028-03-11T20:10:10.500")
        self.pass_half_hours(HALF_HOURS // 2)
        self.machine.set_zone("Asia/Kathmandu")
        self.pass_half_hours(HALF_HOURS // 4)
        self.machine.set_zone("Asia/Tokyo")
        self.pass_half_hours(HALF_HOURS // 4)

    def pass_day_7(self):
        """The counter's wrap at 32 bits, after several weeks of suspend."""
        self.machine.advance(10 * 60_000)
        self.machine.suspend(-self.machine.tick - 12 * HOUR)
        self.pass_half_hours(HALF_HOURS)


if __name__ == "__main__":
    unittest.main()
