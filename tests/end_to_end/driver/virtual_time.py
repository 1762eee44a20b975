# SPDX-License-Identifier: GPL-3.0-or-later
"""Controls a program's time from outside, so that a test that spans a day takes a moment and is reproducible."""

import os
import re
from datetime import datetime
from typing import NamedTuple

from driver.waiting import SLOWNESS, LineReader

ANSWER_PATIENCE = 60.0 * SLOWNESS  # s; a day has many ticks of a short timer


class Moment(NamedTuple):
    """A point in the program's time."""
    wall: datetime  # local time
    tick: int       # milliseconds since the machine started, as a signed 32-bit number


class VirtualTimeError(AssertionError):
    """The program refused a command or sent an invalid answer."""


class VirtualTime:
    """The pipes that control one program's time. Pass `argument` and `pass_fds` when starting it, and call `started`
    afterwards."""

    def __init__(self, wall, tick=0):
        """`wall`: local time like "1998-10-03T23:59:57"; `tick`: milliseconds since the machine started."""
        self._start = f"{wall},{tick}"
        commands, self._commands = os.pipe()
        self._answers, answers = os.pipe()
        self._theirs = [commands, answers]
        self._reader = LineReader(self._answers)

    def __enter__(self):
        return self

    def __exit__(self, *trouble):
        self.close()

    @property
    def argument(self):
        """The option for the program's command line."""
        return "--virtual-time={},{},{}".format(*self._theirs, self._start)

    @property
    def pass_fds(self):
        """The descriptors that the program must inherit."""
        return tuple(self._theirs)

    def started(self):
        """Closes the program's ends of the pipes; otherwise its end could not be detected here."""
        while self._theirs:
            os.close(self._theirs.pop())

    def advance(self, milliseconds, timeout=ANSWER_PATIENCE):
        """Lets time pass and runs all timers that become due. Returns the new Moment, like the functions below."""
        return self._ask(f"advance {milliseconds}", timeout)

    def next(self, timeout=ANSWER_PATIENCE):
        """Jumps to the next due timer. There must be one."""
        return self._ask("next", timeout)

    def set_wall(self, text, timeout=ANSWER_PATIENCE):
        """Sets only the wall clock, as a user does: "1998-10-03T23:59:57"."""
        return self._ask(f"wall {text}", timeout)

    def suspend(self, milliseconds, timeout=ANSWER_PATIENCE):
        """Suspends the machine: wall clock and tick advance, but no timer becomes due."""
        return self._ask(f"suspend {milliseconds}", timeout)

    def set_zone(self, name, timeout=ANSWER_PATIENCE):
        """Moves the machine to another time zone: "America/New_York"."""
        return self._ask(f"zone {name}", timeout)

    def close(self):
        """Closes the pipes; the program's time is stopped from then on. Can be called repeatedly."""
        self.started()
        for descriptor in (self._commands, self._answers):
            if descriptor is not None:
                os.close(descriptor)
        self._commands = self._answers = None

    def _ask(self, command, timeout):
        try:
            os.write(self._commands, f"{command}\n".encode())
            answer = self._reader.read_line(f"the answer to {command!r}", timeout)
        except (BrokenPipeError, EOFError) as error:
            raise VirtualTimeError(f"the program was gone before it answered {command!r}") from error
        reached = re.fullmatch(r"ok (\S+) (-?\d+)", answer)
        if not reached:
            raise VirtualTimeError(f"{command!r} was answered with {answer!r}")
        return Moment(datetime.fromisoformat(reached[1]), int(reached[2]))
