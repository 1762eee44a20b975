# SPDX-License-Identifier: GPL-3.0-or-later
"""A machine with controlled time, and the clock and time signal that are expected at each moment.

Computed independently of the program with Python's own time zones, from an instant, a zone and the tick counter.
"""

from datetime import datetime, timedelta, timezone
from zoneinfo import ZoneInfo

WEEKDAYS = "月火水木金土日"
HOLIDAYS = {(1, 1): "元日", (2, 11): "建国記念の日", (2, 23): "天皇誕生日", (11, 23): "勤労感謝の日"}
STYLES = {"DisMode": "1", "TypeHour": "1", "TypeYear": "1"}  # the styles of `days` and `clock`
HALF_HOUR = 30 * 60_000  # ms
SECOND = 1000


class TurnedMachine:
    """Controls a program's time and computes the expected results."""

    def __init__(self, virtual_time, wall, tick=0, zone="Asia/Tokyo"):
        """`virtual_time`: the pipes to a program that was started with the same wall clock, tick and zone."""
        self._time, self._tick, self._zone = virtual_time, tick, ZoneInfo(zone)
        self._set(wall)

    @property
    def tick(self):
        """The machine's tick counter, in milliseconds as a signed 32-bit number."""
        return self._tick

    @property
    def now(self):
        """The wall clock, without a zone."""
        return self._instant.astimezone(self._zone).replace(tzinfo=None)

    @property
    def clock(self):
        """The expected lower line."""
        return f"{self.now.hour}:{self.now:%M:%S}"

    @property
    def days(self):
        """The allowed upper lines: the date, the holiday on that date, and in the first ten seconds of a day also those
        of the previous day."""
        days = {self.now.date(), (self.now - timedelta(seconds=10)).date()}
        dates = {f"{day.year}/{day.month}/{day.day}({WEEKDAYS[day.weekday()]})" for day in days}
        return dates | {HOLIDAYS[day.month, day.day] for day in days if (day.month, day.day) in HOLIDAYS}

    @property
    def strikes(self):
        """The number of strikes that are due at this moment."""
        if self.now.minute == 0:
            return self.now.hour % 12 or 12
        return int(self.now.minute == 30)

    def advance(self, milliseconds):
        self._instant += timedelta(milliseconds=milliseconds)
        self._reached(self._time.advance(milliseconds), milliseconds)

    def to_half_hour(self):
        """Advances to 1.5 s after the next full or half hour, so that the time signal has run."""
        behind = (self.now - datetime.min) % timedelta(milliseconds=HALF_HOUR)
        self.advance(HALF_HOUR - behind // timedelta(milliseconds=1) + 3 * SECOND // 2)

    def suspend(self, milliseconds):
        self._instant += timedelta(milliseconds=milliseconds)
        self._reached(self._time.suspend(milliseconds), milliseconds)

    def set_wall(self, wall):
        self._set(wall)
        self._reached(self._time.set_wall(wall), 0)

    def set_zone(self, zone):
        self._zone = ZoneInfo(zone)
        self._reached(self._time.set_zone(zone), 0)

    def _set(self, wall):
        self._instant = datetime.fromisoformat(wall).replace(tzinfo=self._zone).astimezone(timezone.utc)

    def _reached(self, moment, milliseconds):
        """Checks that the program's time equals the computed one; otherwise the computation here is wrong."""
        self._tick = (self._tick + milliseconds + 2**31) % 2**32 - 2**31
        assert moment == (self.now, self._tick), f"{moment} instead of {self.now}, {self._tick}"
