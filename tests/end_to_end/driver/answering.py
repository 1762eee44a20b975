# SPDX-License-Identifier: GPL-3.0-or-later
"""How long a program leaves its window without an answer.

The window is asked with _NET_WM_PING, which Qt answers from its event loop: over the X server alone, so that message
buses, services and the window manager may be stopped meanwhile. A process of its own asks, one ping at a time. Time for
which the program, the X server or that process were ready to run and had no processor (/proc/PID/schedstat) does not
count: a busy machine is not a program that hangs. Nor does the time for which the program computes, unless a test asks for
it: opening a window takes several times as long on a machine that does other things as well.
"""

import contextlib
import select
import signal
import sys
import time
from pathlib import Path

from driver.waiting import PATIENCE, SLOWNESS

LONGEST = 0.2 * SLOWNESS  # s that no step may keep the window from answering
INTERVAL = 0.02  # s between an answer and the next ping
FOLDER = Path(__file__).resolve().parent.parent


class Answering:
    """Measures from its construction until `longest` is asked for. `program`: as the session has started it; `window`:
    the X id of one of its windows, which may be hidden but has to last; `computing`: whether to count the time for which
    the program computes."""

    def __init__(self, session, program, window=None, computing=False):
        xid = window if window is not None else session.windows.wait(pid=program.pid)
        self._longest = None
        self._probe = session.spawn([sys.executable, "-m", "driver.answering", session.display, xid, program.pid,
                                     int(computing), session.services["Xvfb"].pid], cwd=FOLDER)
        self._probe.wait_output("asking")

    def longest(self):
        """Ends the measurement; seconds of the longest time without an answer."""
        if self._longest is None:
            self._probe.check_running()
            self._probe.stop(PATIENCE)
            self._longest = float(self._probe.output().split("longest")[1])
        return self._longest


@contextlib.contextmanager
def keeps_answering(session, program, window=None, limit=LONGEST, computing=False):
    """Fails if the window was without an answer for longer than `limit` seconds within the block."""
    measured = Answering(session, program, window, computing)
    yield
    longest = measured.longest()
    print(f"without an answer for {longest:.2f} s at most", flush=True)
    if longest > limit:
        raise AssertionError(f"the window did not answer for {longest:.2f} s")


class _Starvation:
    """Seconds for which the program's threads were ready to run and had no processor, for one may hold what another waits
    for; of the X server and of ourselves, and unless `computing` counts of its main thread, the time that they worked as
    well."""

    def __init__(self, program, computing, others):
        self._program = Path(f"/proc/{program}/task")
        self._main = None if computing else str(program)
        self._others = [Path(f"/proc/{pid}/schedstat") for pid in others] + [Path("/proc/self/schedstat")]

    def read(self):
        """What `since` compares: nanoseconds up to now, by thread or process."""
        counts = {}
        for task in self._program.iterdir():
            worked, waited = self._times(task / "schedstat")
            counts[task.name] = waited + (worked if task.name == self._main else 0)
        return counts | {path: sum(self._times(path)) for path in self._others}

    def since(self, before):
        now = self.read()  # a thread that has ended in between is no longer in it
        return sum(max(0, count - before.get(name, 0)) for name, count in now.items()) / 1e9

    @staticmethod
    def _times(path):
        """Nanoseconds of work, and of waiting for a processor."""
        try:
            return [int(word) for word in path.read_text().split()[:2]]
        except OSError:
            return [0, 0]


class _Probe:
    def __init__(self, display_name, xid, starvation):
        from Xlib import X, display  # pylint: disable=import-outside-toplevel; needed by the probe's process alone
        from Xlib.protocol.event import ClientMessage
        self._display = display.Display(display_name)
        self._root = self._display.screen().root
        self._root.change_attributes(event_mask=X.StructureNotifyMask | X.SubstructureNotifyMask)
        self._window = self._display.create_resource_object("window", xid)
        self._protocols, self._ping = map(self._display.intern_atom, ("WM_PROTOCOLS", "_NET_WM_PING"))
        self._message = ClientMessage
        self._starvation = starvation
        self._number = 0
        self._begun = None
        self.longest = 0.0

    def ask(self):
        self._number += 1
        self._begun = time.monotonic(), self._starvation.read()
        message = self._message(window=self._window, client_type=self._protocols,
                                data=(32, [self._ping, self._number, self._window.id, 0, 0]))
        self._window.send_event(message)
        self._display.flush()
        while not self._answered():
            select.select([self._display], [], [])
        self.note()

    def note(self):
        """Takes the present ping into account, answered or not."""
        if self._begun:
            began, before = self._begun
            self.longest = max(self.longest, time.monotonic() - began - self._starvation.since(before))

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
    probe = _Probe(display_name, int(xid), _Starvation(pid, computing == "1", others))
    try:
        probe.ask()
        probe.longest = 0.0  # of our own start
        print("asking", flush=True)
        while True:
            time.sleep(INTERVAL)
            probe.ask()
    except _Ended:
        signal.signal(signal.SIGTERM, signal.SIG_IGN)
        probe.note()
        print("longest", probe.longest, flush=True)


if __name__ == "__main__":
    main(*sys.argv[1:])
