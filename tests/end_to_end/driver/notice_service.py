# SPDX-License-Identifier: GPL-3.0-or-later
"""A notification service on a session's bus, and what it was asked to show."""

import json
import os
from pathlib import Path
from typing import NamedTuple

from driver.waiting import wait_for

PROGRAM = Path(__file__).parent / "notice_service_program.py"
ALL = ("actions", "body", "body-markup")


class Notice(NamedTuple):
    """The arguments of a call of Notify."""
    application: str
    replaces: int
    icon: str
    summary: str
    body: str
    actions: list
    hints: dict
    expires: int


class NoticeService:
    """Runs until it is ended, or the session. It numbers its notices from 1."""

    def __init__(self, session, capabilities=ALL):
        ours, self._orders = os.pipe()
        self.program = session.spawn(["/usr/bin/python3", PROGRAM, ours, ",".join(capabilities)], pass_fds=(ours,))
        os.close(ours)
        self.program.wait_output('["ready"]')

    def calls(self, method):
        """The arguments of its calls so far."""
        events = [json.loads(line) for line in self.program.output().splitlines() if line.endswith("]")]
        return [event[1:] for event in events if event[0] == method]

    def notices(self):
        return [Notice(*arguments) for arguments in self.calls("Notify")]

    def wait_notices(self, count):
        """Waits until there are so many notices; returns them."""
        wait_for(lambda: len(self.notices()) >= count, f"{count} notices")
        notices = self.notices()
        assert len(notices) == count, notices
        return notices

    def act(self, number, key):
        """The user chooses an action of a notice."""
        os.write(self._orders, f"act {number} {key}\n".encode())

    def hang(self, method):
        """From now on it does not answer this method."""
        os.write(self._orders, f"hang {method}\n".encode())

    def stop(self):
        """Ends it; the bus forgets its name. Does nothing the second time."""
        self.program.stop()
        if self._orders is not None:
            os.close(self._orders)
        self._orders = None
