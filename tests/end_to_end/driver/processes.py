# SPDX-License-Identifier: GPL-3.0-or-later
"""Finding and ending all processes of a session, including those that it did not start itself.

A program under test starts helpers, some of them detached; a message bus starts services. They all inherit the
session's environment, so a marker variable in it identifies them.
"""

import os
import signal
import time
from pathlib import Path

from driver.waiting import TimedOut, wait_for

MARK = "TICKWELL_TEST_SESSION"

LOOKS, LOOK_INTERVAL = 3, 0.01  # s


def marked(value):
    """Ids of the running processes that carry this marker."""
    numbered = (entry for entry in Path("/proc").iterdir() if entry.name.isdigit())
    return [int(entry.name) for entry in numbered if _carries(entry, value)]


def processes_of(session, name):
    """Ids of the session's processes with this name, as `ps` shows it."""
    return [pid for pid in marked(session.directory) if _name(pid) == name]


def process_of(session, name):
    """Id of the session's only process with this name."""
    found = processes_of(session, name)
    if len(found) != 1:
        raise RuntimeError(f"{len(found)} processes are {name}")
    return found[0]


def _name(pid):
    """Empty if the process has ended."""
    try:
        return Path(f"/proc/{pid}/comm").read_text(encoding="utf-8").strip()
    except OSError:
        return ""


def end_marked(value, patience=5.0):
    """Asks all of them to end, including any that are started in the meantime, and kills those left after `patience`
    seconds."""
    asked = set()

    def have_ended():
        left = _left(value)
        _send(left - asked, signal.SIGTERM)
        asked.update(left)
        return not left
    try:
        wait_for(have_ended, "the session's processes to end", patience)
    except TimedOut:
        wait_for(lambda: not _kill(_left(value)), "the session's killed processes to be gone")


def _left(value):
    """The processes that remain. Between listing the processes and reading their environments one can start another and
    end, and the environment reads as empty for a moment while a program is being started: only several empty results in
    a row are conclusive."""
    for _ in range(LOOKS):
        found = set(marked(value))
        if found:
            return found
        time.sleep(LOOK_INTERVAL)
    return set()


def _kill(pids):
    _send(pids, signal.SIGKILL)
    return pids


def _carries(entry, value):
    try:
        return f"{MARK}={value}".encode() in (entry / "environ").read_bytes().split(b"\0")
    except OSError:  # it has ended in the meantime, or belongs to another user
        return False


def _send(pids, number):
    for pid in pids:
        try:
            os.kill(pid, number)
        except ProcessLookupError:
            pass
