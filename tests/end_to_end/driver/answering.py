# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures how long a program's window does not respond.

The window receives _NET_WM_PING, which Qt answers from its event loop. Only the X server is involved, so message buses,
services and the window manager may be stopped. A separate process sends one ping at a time.

Not every delay means that the program hangs, so some time is not counted: time in which the program or the X server was
runnable without a CPU (/proc/PID/schedstat); time by which that process overslept, because then it cannot observe the
program; and time in which the program's main thread waited for the disk to read a page, of a file or of its own code,
because other jobs push such pages out of memory and keep the disk busy. Waiting for a write is counted. Time in which
the program computes is only counted on request, because opening a window takes several times as long on a busy machine.
"""

import contextlib
import platform
import select
import signal
import sys
import time
from pathlib import Path

from driver.waiting import PATIENCE, SLOWNESS

LONGEST = 0.2 * SLOWNESS  # s; no step may keep the window from answering for longer
INTERVAL = 0.02  # s between an answer and the next ping
LOOK = 0.02  # s between two checks of what the program waits for, while there is no answer
SILENCE = 0.1  # s without an answer after which, repeatedly, the states of all threads are recorded
# System calls that read a file; -1 is none at all: a page fault. In these a thread waits for the disk uninterruptibly.
READING = {"x86_64": {"0", "17", "-1"}, "aarch64": {"63", "67", "-1"}}.get(platform.machine(), {"-1"})
FOLDER = Path(__file__).resolve().parent.parent


class Answering:
    """Measures from its construction until `longest` is called. `program`: as returned by the session; `window`: the X
    id of one of its windows, which may be hidden but must not be destroyed; `computing`: whether to count the time in
    which the program computes."""

    def __init__(self, session, program, window=None, computing=False):
        xid = window if window is not None else session.windows.wait(pid=program.pid)
        self._longest = None
        self.waiting = ""  # what its threads waited for during the longest time, once that is known
        self._probe = session.spawn([sys.executable, "-m", "driver.answering", session.display, xid, program.pid,
                                     int(computing), session.services["Xvfb"].pid], cwd=FOLDER)
        self._probe.wait_output("asking")

    def longest(self):
        """Ends the measurement; returns the longest time without an answer in seconds."""
        if self._longest is None:
            self._probe.check_running()
            self._probe.stop(PATIENCE)
            found = self._probe.output().split("longest ")[1]
            seconds, _, self.waiting = found.partition("\n")
            self._longest = float(seconds)
        return self._longest


@contextlib.contextmanager
def keeps_answering(session, program, window=None, limit=LONGEST, computing=False):
    """Fails if the window did not answer for longer than `limit` seconds within the block."""
    measured = Answering(session, program, window, computing)
    yield
    longest = measured.longest()
    print(f"without an answer for {longest:.2f} s at most", flush=True)
    if longest > limit:
        raise AssertionError(f"the window did not answer for {longest:.2f} s:\n{measured.waiting}")


class _Starvation:
    """The time in seconds that does not count as unresponsive. For all threads of the program: time in which they were
    runnable without a CPU, because one thread can hold what another waits for. For the program's main thread, unless
    `computing`, and for the X server: CPU time as well."""

    def __init__(self, program, computing, others):
        self._program = Path(f"/proc/{program}/task")
        self._main = None if computing else str(program)
        self._others = [Path(f"/proc/{pid}/schedstat") for pid in others]

    def read(self):
        """Nanoseconds up to now by thread or process, for `since`."""
        counts = {}
        for task in self._program.iterdir():
            worked, waited = self._times(task / "schedstat")
            counts[task.name] = waited + (worked if task.name == self._main else 0)
        return counts | {path: sum(self._times(path)) for path in self._others}

    def since(self, before):
        now = self.read()  # threads that ended in the meantime are missing here
        return sum(max(0, count - before.get(name, 0)) for name, count in now.items()) / 1e9

    @staticmethod
    def _times(path):
        """Nanoseconds of CPU time, and of waiting for a CPU."""
        try:
            return [int(word) for word in path.read_text().split()[:2]]
        except OSError:
            return [0, 0]


def is_reading(stat, syscall):
    """Whether a thread waits for the disk to read a page, according to its files in /proc."""
    return stat.rpartition(")")[2].split()[:1] == ["D"] and syscall.split()[:1] and syscall.split()[0] in READING


def _read(task, name):
    try:
        return (task / name).read_text().strip()
    except OSError:
        return ""


def _threads_of(program):
    """For each thread of the program: its state, the kernel function in which it waits, and its system call."""
    def stack(task):
        return " < ".join(line.split()[1].split("+")[0] for line in _read(task, "stack").splitlines() if " " in line)
    return [f"{task.name} {_read(task, 'stat').rpartition(')')[2].split()[:1]} wchan {_read(task, 'wchan')} "
            f"syscall {_read(task, 'syscall')} stack {stack(task)}" for task in Path(f"/proc/{program}/task").iterdir()]


class _Probe:
    def __init__(self, display_name, xid, program, starvation):
        from Xlib import X, display  # pylint: disable=import-outside-toplevel; needed only in the probe's process
        from Xlib.protocol.event import ClientMessage
        self._display = display.Display(display_name)
        self._root = self._display.screen().root
        self._root.change_attributes(event_mask=X.StructureNotifyMask | X.SubstructureNotifyMask)
        self._window = self._display.create_resource_object("window", xid)
        self._protocols, self._ping = map(self._display.intern_atom, ("WM_PROTOCOLS", "_NET_WM_PING"))
        self._message = ClientMessage
        self._program = program
        self._main = Path(f"/proc/{program}/task/{program}")
        self._reading = 0.0  # s that the main thread waited for the disk since the ping
        self._absent = 0.0  # s since the ping in which this process did not run although it wanted to look
        self._starvation = starvation
        self._number = 0
        self._begun = None
        self._waiting = []
        self.longest = 0.0
        self.waited_for = []  # during the longest time

    def ask(self):
        self._number += 1
        self._begun = time.monotonic(), self._starvation.read()
        message = self._message(window=self._window, client_type=self._protocols,
                                data=(32, [self._ping, self._number, self._window.id, 0, 0]))
        self._window.send_event(message)
        self._display.flush()
        self._waiting, self._reading, self._absent = [], 0.0, 0.0
        woke = looked = noted = self._begun[0]
        while not self._answered():
            select.select([self._display], [], [], LOOK)
            slept, woke = woke, time.monotonic()
            self._absent += max(0.0, woke - slept - LOOK)
            if woke - looked < LOOK:
                continue  # woken by one of many events
            before, looked = looked, woke
            if is_reading(_read(self._main, "stat"), _read(self._main, "syscall")):
                self._reading += min(looked - before, LOOK)
            if looked - noted > SILENCE:
                noted = looked
                self._waiting += [f"after {looked - self._begun[0]:.2f} s: {thread}"
                                  for thread in _threads_of(self._program)]
        self.note()

    def note(self):
        """Includes the current ping in the maximum, whether it was answered or not."""
        if self._begun:
            began, before = self._begun
            silent = time.monotonic() - began - self._starvation.since(before) - self._reading - self._absent
            if silent > self.longest:
                self.longest, self.waited_for = silent, self._waiting

    def _answered(self):
        while self._display.pending_events():
            event = self._display.next_event()
            if getattr(event, "client_type", None) == self._protocols and \
                    list(event.data[1][:2]) == [self._ping, self._number]:
                return True
        return False


class _Ended(Exception):
    pass


def _end(*_):
    raise _Ended


def main(display_name, xid, pid, computing, *others):
    signal.signal(signal.SIGTERM, _end)
    probe = _Probe(display_name, int(xid), pid, _Starvation(pid, computing == "1", others))
    try:
        probe.ask()
        probe.longest = 0.0  # the first ping includes the probe's own start
        print("asking", flush=True)
        while True:
            time.sleep(INTERVAL)
            probe.ask()
    except _Ended:
        signal.signal(signal.SIGTERM, signal.SIG_IGN)
        probe.note()
        print("longest", "\n".join([str(probe.longest), *probe.waited_for]), flush=True)


if __name__ == "__main__":
    main(*sys.argv[1:])
