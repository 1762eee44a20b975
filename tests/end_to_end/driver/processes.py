# SPDX-License-Identifier: GPL-3.0-or-later
"""Knowing and ending every process of a session, also those that it did not start itself.

A program under test starts helpers, some of them detached; a message bus starts services. They all inherit
the session's environment, so a mark in it tells them from the rest of the machine.
"""

import os
import signal
from pathlib import Path

from driver.waiting import TimedOut, wait_for

MARK = "TICKWELL_TEST_SESSION"


def marked(value):
    """Ids of the living processes that carry this mark."""
    numbered = (entry for entry in Path("/proc").iterdir() if entry.name.isdigit())
    return [int(entry.name) for entry in numbered if _carries(entry, value)]


def process_of(session, name):
    """Id of the session's one process with this name, as `ps` gives it."""
    found = [pid for pid in marked(session.directory) if Path(f"/proc/{pid}/comm").read_text().strip() == name]
    if len(found) != 1:
        raise RuntimeError(f"{len(found)} processes are {name}")
    return found[0]


def end_marked(value, patience=5.0):
    """Asks each of them to end, and ends those that do not within `patience` seconds."""
    _send(value, signal.SIGTERM)
    try:
        wait_for(lambda: not marked(value), "the session's processes to end", patience)
    except TimedOut:
        _send(value, signal.SIGKILL)
        wait_for(lambda: not marked(value), "the session's killed processes to be gone")


def _carries(entry, value):
    try:
        return f"{MARK}={value}".encode() in (entry / "environ").read_bytes().split(b"\0")
    except OSError:  # ended meanwhile, or another user's
        return False


def _send(value, number):
    for pid in marked(value):
        try:
            os.kill(pid, number)
        except ProcessLookupError:
            pass
