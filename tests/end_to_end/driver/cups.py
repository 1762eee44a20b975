# SPDX-License-Identifier: GPL-3.0-or-later
"""A private print service, with one printer that keeps the documents it receives.

It listens on a socket in a private folder and on no network address, and never contacts the machine's print service.
The printer is a raw queue: each document is in the spool as the program made it.
"""

import os
import re
import shutil
import signal
import subprocess
import tempfile
from pathlib import Path

from driver.waiting import PATIENCE, wait_for

DAEMON = "/usr/sbin/cupsd"
PROGRAMS = Path("/usr/lib/cups")
PRINTER = "TestPrinter"

SERVICE = """\
LogLevel warn
Listen {folder}/socket
DefaultAuthType None
WebInterface No
Browsing No
DefaultPaperSize A4
PreserveJobFiles Yes
PreserveJobHistory Yes
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  JobPrivateAccess all
  JobPrivateValues none
  <Limit All>
    Order allow,deny
    Allow all
  </Limit>
</Policy>
"""

PLACES = """\
ServerRoot {folder}/etc
ServerBin {folder}/bin
CacheDir {folder}/cache
StateDir {folder}/state
RequestRoot {folder}/spool
TempDir {folder}/spool
AccessLog {folder}/log/access
ErrorLog {folder}/log/error
PageLog {folder}/log/pages
FileDevice Yes
"""

# When started as root, the service runs jobs as an unprivileged user, as usual.
RIGHTS = """\
SystemGroup root
User lp
Group lp
"""


# A device that refuses every document.
FAILING_DEVICE = """\
#!/bin/sh
[ $# -eq 0 ] || { echo "ERROR: the paper is gone" >&2; exit 1; }
"""


class Cups:
    """Runs in a session from its construction until the session ends. `close` also removes its files."""

    def __init__(self, session):
        # Not in the session's folder, which the user that runs the jobs cannot enter.
        self._folder = Path(tempfile.mkdtemp(prefix="tickwell-cups-"))
        self._folder.chmod(0o755)
        for name in ("etc/ppd", "cache", "state", "spool", "log"):
            (self._folder / name).mkdir(parents=True)
            (self._folder / name).chmod(0o777)
        self._make_programs()
        self.environment = {"CUPS_SERVER": str(self._folder / "socket")}  # for programs that print
        # Debian keeps the tools of administrators in a folder that is not in a user's PATH.
        path = {"PATH": os.pathsep.join((session.environment["PATH"], str(Path(DAEMON).parent)))}
        self._client_environment = session.environment | self.environment | path
        service, places = self._folder / "cupsd.conf", self._folder / "cups-files.conf"
        service.write_text(SERVICE.format(folder=self._folder), encoding="utf-8")
        rights = RIGHTS if os.geteuid() == 0 else ""
        places.write_text(PLACES.format(folder=self._folder) + rights, encoding="utf-8")
        self._daemon = session.spawn([DAEMON, "-f", "-c", service, "-s", places])
        wait_for(self._answers, "the print service")
        self._run("lpadmin", "-p", PRINTER, "-E", "-v", "file:///dev/null", "-m", "raw")
        self._run("lpadmin", "-d", PRINTER)

    def close(self):
        """Ends the service and removes its files."""
        self.go_on()
        self._daemon.stop()
        shutil.rmtree(self._folder)

    def documents(self):
        """The documents received so far, oldest first."""
        return sorted((self._folder / "spool").glob("d*-001"))

    def wait_documents(self, count, timeout=PATIENCE):
        """Waits until there are at least `count` documents and no job is left; returns the documents."""
        def through():
            return len(self.documents()) >= count and not self._run("lpstat", "-o").strip()
        wait_for(through, f"{count} printed documents", timeout)
        return self.documents()

    def text(self, document):
        """The text of a document; pages end with a form feed, and consecutive spaces may be merged."""
        return self._run("pdftotext", "-layout", document, "-")

    def fonts(self, document):
        """[(name, whether it is embedded)] of the document's fonts."""
        rows = self._run("pdffonts", document).splitlines()[2:]
        return [(row.split()[0], row.split()[-5] == "yes") for row in rows]

    def page_boxes(self, document):
        """[(left, top, right, bottom)] of the words of a document, in points from the top left corner of a page."""
        boxes = re.findall(r'<word xMin="([\d.]+)" yMin="([\d.]+)" xMax="([\d.]+)" yMax="([\d.]+)"',
                           self._run("pdftotext", "-bbox", document, "-"))
        return [tuple(map(float, box)) for box in boxes]

    def reject(self, reason):
        """Makes the printer's queue reject jobs."""
        self._run("cupsreject", "-r", reason, PRINTER)

    def accept(self):
        """Makes the queue accept jobs again."""
        self._run("cupsaccept", PRINTER)

    def fail_jobs(self):
        """Makes the queue accept jobs and abort each of them."""
        self._run("lpadmin", "-p", PRINTER, "-v", "failing:/", "-o", "printer-error-policy=abort-job")

    def stand_still(self):
        """Stops the service's process: it exists but does not answer."""
        os.kill(self._daemon.pid, signal.SIGSTOP)

    def go_on(self):
        """Continues the process."""
        os.kill(self._daemon.pid, signal.SIGCONT)

    def _make_programs(self):
        """Links the machine's print service programs, and adds a device for the tests."""
        (self._folder / "bin/backend").mkdir(parents=True)
        for name in ("daemon", "filter", "notifier"):
            (self._folder / "bin" / name).symlink_to(PROGRAMS / name)
        device = self._folder / "bin/backend/failing"
        device.write_text(FAILING_DEVICE, encoding="utf-8")
        device.chmod(0o755)

    def _answers(self):
        self._daemon.check_running()
        return "is running" in self._run("lpstat", "-r", check=False)

    def _run(self, *command, check=True):
        done = subprocess.run([str(word) for word in command], env=self._client_environment, capture_output=True,
                              text=True, timeout=PATIENCE, check=False)
        if check and done.returncode:
            raise RuntimeError(f"{command}: {done.returncode} {done.stderr}\n{self._daemon.output()}")
        return done.stdout
