# SPDX-License-Identifier: GPL-3.0-or-later
"""The processes of one repetition: found by a mark in their environment, measured through /proc, ended by pidfd.

The mark is inherited, so everything that a program starts is counted and ended with it, detached or not.
"""

import os
import select
import signal
import time
from dataclasses import dataclass
from pathlib import Path

MARK_VARIABLE = "TICKWELL_BENCH_MARK"

_SECONDS_TO_END = 2.0


@dataclass(frozen=True)
class Memory:
    """Memory of processes, summed, in KiB."""

    rss_kib: int
    pss_kib: int  # shared pages counted proportionally
    uss_kib: int  # only unshared pages
    anonymous_kib: int  # the part of PSS that is not backed by a file
    peak_rss_kib: int  # highest RSS; the summed peaks may be at different moments


@dataclass(frozen=True)
class Activity:
    """Activity of processes since their start, summed over processes and threads."""

    cpu_ns: int  # only of threads that still exist
    cpu_tick_ms: int  # in clock ticks of the kernel, including ended threads and children
    voluntary_switches: int
    involuntary_switches: int
    written_bytes: int
    threads: int


def marked(mark):
    """The ids of all running processes with this mark."""
    return [int(entry) for entry in os.listdir("/proc") if entry.isdigit() and _bears(int(entry), mark)]


def name_of(pid):
    """The short name of a process; empty if it has ended."""
    return _read(f"/proc/{pid}/comm").strip()


def memory_of(pids):
    """The memory of these processes; ended ones count as 0."""
    maps = [_fields(f"/proc/{pid}/smaps_rollup") for pid in pids]
    states = [_fields(f"/proc/{pid}/status") for pid in pids]
    return Memory(
        rss_kib=_total(maps, "Rss"),
        pss_kib=_total(maps, "Pss"),
        uss_kib=_total(maps, "Private_Clean") + _total(maps, "Private_Dirty"),
        anonymous_kib=_total(maps, "Pss_Anon"),
        peak_rss_kib=_total(states, "VmHWM"),
    )


def activity_of(pids):
    """The activity of these processes; ended ones count as 0."""
    tasks = [task for pid in pids for task in _tasks(pid)]
    states = [_fields(f"{task}/status") for task in tasks]
    return Activity(
        cpu_ns=sum(_first_number(_read(f"{task}/schedstat")) for task in tasks),
        cpu_tick_ms=sum(_ticks(pid) for pid in pids) * 1000 // os.sysconf("SC_CLK_TCK"),
        voluntary_switches=_total(states, "voluntary_ctxt_switches"),
        involuntary_switches=_total(states, "nonvoluntary_ctxt_switches"),
        written_bytes=_total([_fields(f"/proc/{pid}/io") for pid in pids], "write_bytes"),
        threads=len(tasks),
    )


def end_marked(marks):
    """Ends every process with one of the marks: first SIGTERM, then SIGKILL."""
    for signal_number in (signal.SIGTERM, signal.SIGKILL):
        # A process may start another while it is being ended, so repeat until none is left.
        deadline = time.monotonic() + _SECONDS_TO_END
        while pids := [(pid, mark) for mark in marks for pid in marked(mark)]:
            for pid, mark in pids:
                _end(pid, mark, signal_number)
            if time.monotonic() > deadline:
                break


def _end(pid, mark, signal_number):
    """Sends the signal and waits up to 0.2 s for the process to end."""
    try:
        handle = os.pidfd_open(pid)
    except ProcessLookupError:
        return
    try:
        # The pidfd always refers to the same process, but the id could have been reused before it was opened.
        if _bears(pid, mark):
            signal.pidfd_send_signal(handle, signal_number)
            select.select([handle], [], [], 0.2)
    except ProcessLookupError:
        pass
    finally:
        os.close(handle)


def _bears(pid, mark):
    return f"{MARK_VARIABLE}={mark}" in _read(f"/proc/{pid}/environ").split("\0")


def _read(path):
    """The contents of a file in /proc; empty if its process has ended or belongs to another user."""
    try:
        return Path(path).read_bytes().decode(errors="replace")
    except OSError:
        return ""


def _tasks(pid):
    try:
        return [f"/proc/{pid}/task/{thread}" for thread in os.listdir(f"/proc/{pid}/task")]
    except OSError:
        return []


def _fields(path):
    """The lines "name: number ..." of a file as {name: number}."""
    pairs = (line.split(":", 1) for line in _read(path).splitlines() if ":" in line)
    return {name: _first_number(value) for name, value in pairs}


def _first_number(text):
    words = text.split()
    return int(words[0]) if words and words[0].isdigit() else 0


def _total(rows, name):
    return sum(row.get(name, 0) for row in rows)


def _ticks(pid):
    """User and system time of a process and of its ended children, in clock ticks."""
    # The name in brackets may contain anything; utime, stime, cutime and cstime are the 12th to 15th word after it.
    after_name = _read(f"/proc/{pid}/stat").rpartition(")")[2].split()
    return sum(int(word) for word in after_name[11:15])
