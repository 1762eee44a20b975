# SPDX-License-Identifier: GPL-3.0-or-later
"""A program that was started, and its accessible root node."""

import signal
import subprocess

from driver.accessible import Node
from driver.waiting import PATIENCE, wait_for


class ProgramEnded(AssertionError):
    """A program ended while a test was waiting for it."""


class Program:
    """A separate process with its output in a file. It ends if this process does."""

    def __init__(self, command, environment, log, cwd=None, pass_fds=()):
        """`log`: the path of the file for standard output and standard error."""
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
        """None while it runs; negative if a signal ended it."""
        return self._process.poll()

    def output(self):
        """Its output so far."""
        return self.log.read_text(errors="replace")

    def check_running(self):
        if self.exit_code is not None:
            raise ProgramEnded(f"{self.command[0]} ended with {self.exit_code}:\n{self.output()}")

    def wait_output(self, text, timeout=PATIENCE):
        """Waits until it has written this text."""
        def written():
            ended = self.exit_code is not None  # read first, because the last output may be written just before the end
            if text not in self.output() and ended:
                self.check_running()
            return text in self.output()
        wait_for(written, f"{text!r} from {self.command[0]}", timeout)

    def wait_end(self, timeout=PATIENCE):
        """Waits until it ends; returns its exit code."""
        wait_for(lambda: self.exit_code is not None, f"the end of {self.command[0]}", timeout)
        return self.exit_code

    def kill(self):
        """Kills it without a chance to clean up, like a crash."""
        self._process.kill()
        self._process.wait()

    def stop(self, patience=5.0):
        """Asks it to end, and kills it after `patience` seconds; returns its exit code."""
        if self.exit_code is None:
            self._process.send_signal(signal.SIGTERM)
            try:
                self._process.wait(patience)
            except subprocess.TimeoutExpired:
                self.kill()
        return self.exit_code


class App(Node):
    """The root node of a program. Its children are the program's windows, followed by its open menus."""

    def __init__(self, node, program, popups):
        super().__init__(node.connection, node.owner, node.path)
        self.program, self._popups = program, popups

    @property
    def menus(self):
        """The open menus."""
        return self._popups.menus(self)

    @property
    def children(self):
        return super().children + self.menus
