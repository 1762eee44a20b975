# SPDX-License-Identifier: GPL-3.0-or-later
"""The screen reader Orca in a session, without sound: its utterances are read from its log."""

import re
import shutil

from driver.waiting import PATIENCE, TimedOut, wait_for

SPOKEN = re.compile(r"SPEECH OUTPUT: '(.*?)' ?\{", re.DOTALL)
# Loaded by Orca: disables speech servers, and writes the log line by line.
CUSTOMIZATIONS = """import orca.debug, orca.settings
orca.settings.speechFactoryModules = []
if orca.debug.debugFile:
    orca.debug.debugFile.reconfigure(line_buffering=True)
"""


def is_installed():
    return shutil.which("orca") is not None


class ScreenReader:
    """Runs from its construction until the session is closed. Start it before the programs that it should read."""

    def __init__(self, session):
        folder = session.home / ".local/share/orca"
        folder.mkdir(parents=True)
        (folder / "orca-customizations.py").write_text(CUSTOMIZATIONS, encoding="utf-8")
        self._log = session.directory / "orca-debug.log"
        self._taken = 0
        self.program = session.spawn(["orca", "--debug-file", self._log, "--disable", "braille"])
        self.wait_said("Screen reader on.", timeout=6 * PATIENCE)

    def said(self):
        """What it has said so far, one text per utterance."""
        log = self._log.read_text(encoding="utf-8", errors="replace") if self._log.exists() else ""
        return [" ".join(text.split()) for text in SPOKEN.findall(log)]

    def forget(self):
        """Later waits consider only what is said from now on."""
        self._taken = len(self.said())

    def wait_said(self, *texts, timeout=PATIENCE):
        """Waits until it has said all these texts in this order. Each must be part of an utterance that no earlier wait
        has consumed."""
        def index_of_last():
            self.program.check_running()
            said, index = self.said(), self._taken
            for text in texts:
                index = next((i + 1 for i in range(index, len(said)) if text in said[i]), None)
                if index is None:
                    return None
            return index
        try:
            self._taken = wait_for(index_of_last, f"{texts} from the screen reader", timeout)
        except TimedOut as error:
            raise TimedOut(f"{error}; it said {self.said()[self._taken:]}") from None
