# SPDX-License-Identifier: GPL-3.0-or-later
"""Waiting with a time limit until something is true in another process."""

import os
import select
import time

from gi.repository import GLib
from Xlib.error import XError

# How many times slower than usual this machine, or a program on it, is.
SLOWNESS = float(os.environ.get("TICKWELL_SLOWNESS", "1"))

# Long enough for a busy machine. A passing test never waits that long.
PATIENCE = 30.0 * SLOWNESS  # s
# s between two checks. It grows, because each check costs the checked program time.
FIRST_INTERVAL, LAST_INTERVAL = 0.01, 0.2

REST = 0.4  # s without a change after which something on the screen counts as steady

# Raised by queries while the queried object appears or disappears; they count as "not yet".
VANISHING = (GLib.Error, XError)


class TimedOut(AssertionError):
    """What a test waited for did not happen."""


def wait_for(check, what, timeout=PATIENCE):
    """Calls `check` until it returns a true value, and returns that. `what` names it in the error."""
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
    """Calls `look` until it has returned the same value, other than None, for `rest` seconds; returns that value."""
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
    """Reads complete lines from a pipe, with a time limit. The caller keeps the descriptor."""

    def __init__(self, descriptor):
        self._descriptor = descriptor
        self._received = b""

    def read_line(self, what, timeout=PATIENCE):
        """The next line without its line feed. Raises EOFError if the other side has closed the pipe, TimedOut if it
        sends nothing."""
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
