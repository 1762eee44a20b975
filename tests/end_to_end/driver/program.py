# SPDX-License-Identifier: GPL-3.0-or-later
"""A program that was started, and what it shows."""

import signal
import subprocess

from driver.accessible import Node
from driver.waiting import PATIENCE, wait_for


class ProgramEnded(AssertionError):
    """A program ended before it did what a test waits for."""


class Program:
    """A process of its own with its output in a file. Its death is its owner's: should this process be
    killed, so is the program."""

    def __init__(self, command, environment, log, cwd=None, pass_fds=()):
        """`log`: the path of the file that takes both outputs."""
        self.command, self.log = [str(word) for word in command], log
        with open(log, "wb") as output:
            self._process = subprocess.Popen(["setpriv", "--pdeathsig", "TERM", "--", *self.command],
                                             env=environment, cwd=cwd, pass_fds=pass_fds,
                                             start_new_session=True, stdin=subprocess.DEVNULL,
                                             stdout=output, stderr=output)

    @property
    def pid(self):
        return self._process.pid

    @property
    def exit_code(self):
        """None while it runs; negative where a signal ended it."""
        return self._process.poll()

    def output(self):
        """All that it has written so far."""
        return self.log.read_text(errors="replace")

    def check_running(self):
        if self.exit_code is not None:
            raise ProgramEnded(f"{self.command[0]} ended with {self.exit_code}:\n{self.output()}")

    def wait_output(self, text, timeout=PATIENCE):
        """Waits until it has written this text."""
        def written():
            ended = self.exit_code is not None  # looked at first: it may write its last just before
            if text not in self.output() and ended:
                self.check_running()
            return text in self.output()
        wait_for(written, f"{text!r} from {self.command[0]}", timeout)

    def wait_end(self, timeout=PATIENCE):
        """Waits until it ends by itself; returns its exit code."""
        wait_for(lambda: self.exit_code is not None, f"the end of {self.command[0]}", timeout)
        return self.exit_code

    def kill(self):
        """Ends it as a crash would, with no time to tidy up."""
        self._process.kill()
        self._process.wait()

    def stop(self, patience=5.0):
        """Asks it to end, kills it where it does not within `patience` seconds; returns its exit code."""
        if self.exit_code is None:
            self._process.send_signal(signal.SIGTERM)
            try:
                self._process.wait(patience)
            except subprocess.TimeoutExpired:
                self.kill()
        return self.exit_code


class App(Node):
    """The topmost accessible node of a program. Its children are the program's windows, and behind them the
    menus that are open."""

    def __init__(self, node, program, popups):
        super().__init__(node.connection, node.owner, node.path)
        self.program, self._popups = program, popups

    @property
    def menus(self):
        """The menus that are open."""
        return self._popups.menus(self)

    @property
    def children(self):
        return super().children + self.menus
