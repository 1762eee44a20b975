# SPDX-License-Identifier: GPL-3.0-or-later
"""Waiting for something to come true in another process, with an end to it."""

import os
import select
import time

from gi.repository import GLib
from Xlib.error import XError

# Whoever knows that a machine, or a program on it, is many times slower than usual says how many times.
SLOWNESS = float(os.environ.get("TICKWELL_SLOWNESS", "1"))

# Long enough for a busy machine. A test that passes never waits it out.
PATIENCE = 30.0 * SLOWNESS  # s
# s between two looks. It grows, for looking costs time of the program looked at.
FIRST_INTERVAL, LAST_INTERVAL = 0.01, 0.2

REST = 0.4  # s for which something on the screen stays the same once it has come to rest

# What asking raises while the thing asked for comes or goes; it counts as "not yet".
VANISHING = (GLib.Error, XError)


class TimedOut(AssertionError):
    """What a test waited for did not come."""


def wait_for(check, what, timeout=PATIENCE):
    """Calls `check` until it returns something true, and returns that. `what` names it in the error."""
    end = time.monotonic() + timeout
    interval = FIRST_INTERVAL
    while True:
        trouble = ""
        try:
            result = check()
            if result:
                return result
        except VANISHING as error:
            trouble = f" ({error})"
        if time.monotonic() > end:
            raise TimedOut(f"waited {timeout:g} s for {what}{trouble}")
        time.sleep(interval)
        interval = min(interval * 1.5, LAST_INTERVAL)


def steady(look, what, rest=REST):
    """What is seen, once it is something and has been the same for `rest` seconds."""
    seen, since = None, 0.0

    def at_rest():
        nonlocal seen, since
        before, seen = seen, look()
        if seen is None or seen != before:
            since = time.monotonic()
            return None
        return seen if time.monotonic() - since > rest else None
    return wait_for(at_rest, what)


class LineReader:
    """Takes whole lines off a pipe, none of them waited for without end. The descriptor stays the
    caller's."""

    def __init__(self, descriptor):
        self._descriptor = descriptor
        self._received = b""

    def read_line(self, what, timeout=PATIENCE):
        """The next line without its end. Raises EOFError when the other side is gone, TimedOut when it is
        silent."""
        end = time.monotonic() + timeout
        while b"\n" not in self._received:
            left = end - time.monotonic()
            if left <= 0 or not select.select([self._descriptor], [], [], left)[0]:
                raise TimedOut(f"waited {timeout:g} s for {what}")
            piece = os.read(self._descriptor, 4096)
            if not piece:
                raise EOFError(f"the other side ended before it gave {what}")
            self._received += piece
        line, self._received = self._received.split(b"\n", 1)
        return line.decode()
