# SPDX-License-Identifier: GPL-3.0-or-later
"""Turning a program's time from outside, so that a test of a day's length takes a moment and is the same each
time."""

import os
import re
from datetime import datetime
from typing import NamedTuple

from driver.waiting import SLOWNESS, LineReader

ANSWER_PATIENCE = 60.0 * SLOWNESS  # s; a day is many ticks of a short timer


class Moment(NamedTuple):
    """Where a program's time stands."""
    wall: datetime  # local time
    tick: int       # milliseconds since the machine started, as a signed 32-bit number


class VirtualTimeError(AssertionError):
    """The program refused a command, or answered with something that is no answer."""


class VirtualTime:
    """The pipes through which one program's time is turned. Hand it `argument` and `pass_fds` when starting
    it, and call `started` afterwards."""

    def __init__(self, wall, tick=0):
        """`wall`: local time as "1998-10-03T23:59:57"; `tick`: milliseconds since the machine started."""
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
        """The descriptors that the program has to inherit."""
        return tuple(self._theirs)

    def started(self):
        """Lets go of the program's ends: only then its death is seen from this side."""
        while self._theirs:
            os.close(self._theirs.pop())

    def advance(self, milliseconds, timeout=ANSWER_PATIENCE):
        """Lets time pass, with every timer due in it. Returns the Moment reached, as do the others."""
        return self._ask(f"advance {milliseconds}", timeout)

    def next(self, timeout=ANSWER_PATIENCE):
        """Jumps to the next timer due. There has to be one."""
        return self._ask("next", timeout)

    def set_wall(self, text, timeout=ANSWER_PATIENCE):
        """Sets the wall clock alone, as a user does: "1998-10-03T23:59:57"."""
        return self._ask(f"wall {text}", timeout)

    def suspend(self, milliseconds, timeout=ANSWER_PATIENCE):
        """Lets the machine sleep: wall clock and tick go on, and no timer is due in it."""
        return self._ask(f"suspend {milliseconds}", timeout)

    def set_zone(self, name, timeout=ANSWER_PATIENCE):
        """Takes the machine to another time zone: "America/New_York"."""
        return self._ask(f"zone {name}", timeout)

    def close(self):
        """The program's time stands still from here on. Closing it again does nothing."""
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
