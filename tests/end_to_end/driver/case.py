# SPDX-License-Identifier: GPL-3.0-or-later
"""The base class of all end-to-end tests."""

import os
import unittest
from pathlib import Path

from driver.desktop import Session

ARTIFACTS_VARIABLE = "TICKWELL_ARTIFACTS"


class TickwellCase(unittest.TestCase):
    """Gives each test a private desktop as `self.session`, which is closed however the test ends. For a failing test, a
    screenshot and the session's logs are saved in the folder named by TICKWELL_ARTIFACTS."""

    window_manager = ("openbox",)  # its command; None for a bare X server

    def run(self, result=None):
        self._result = result if result is not None else self.defaultTestResult()
        self._troubles_before = self._troubles()
        return super().run(self._result)

    def setUp(self):
        self._kept = False
        self.session = self.make_session()
        self.addCleanup(self.session.close)
        self.addCleanup(self._keep_artifacts)  # if set-up fails, there is no tear-down

    def make_session(self):
        return Session(self.window_manager)

    def tearDown(self):
        self._keep_artifacts()  # before the cleanups of the test itself close what the screenshot should show

    def _troubles(self):
        return len(self._result.failures) + len(self._result.errors)

    def _keep_artifacts(self):
        folder = os.environ.get(ARTIFACTS_VARIABLE)
        if not folder or self._kept or self._troubles() == self._troubles_before:
            return
        self._kept = True
        Path(folder).mkdir(parents=True, exist_ok=True)
        for written in sorted(self.session.directory.glob("*.log")):
            log = Path(folder, f"{self.id()}-{written.name}")
            log.write_bytes(written.read_bytes())
            print(f"\n{self.id()} left {log}")
        picture = Path(folder, f"{self.id()}.png")
        self.session.screenshot(picture)
        print(f"\n{self.id()} left {picture}")
