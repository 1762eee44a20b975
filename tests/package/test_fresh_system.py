# SPDX-License-Identifier: GPL-3.0-or-later
"""The package in new, minimal systems of the Debian releases that it supports: installed with all its dependencies,
started by a new user, removed and purged. Each takes several minutes, several hundred megabytes and a package mirror."""

import os
import shutil
import tempfile
import unittest
from pathlib import Path

from debian_package import make_package, run
from driver.case import ARTIFACTS_VARIABLE, TickwellCase
from driver.tickwell import MASTERS
from driver.waiting import steady, wait_for

USER = "newcomer"
# A snapshot mirror may be past its expiry date.
ANY_AGE = 'Acquire::Check-Valid-Until "false";'
# Runs a command in the new system, with private mounts of /proc and /dev that end with it.
WITHIN = """mount -t proc proc "$1/proc" && mount --rbind /dev "$1/dev" && root=$1 && shift && exec chroot "$root" "$@" """


class FreshSystem:
    release = None

    @unittest.skipUnless(os.geteuid() == 0, "only root can make a system of its own")
    def test_it_is_installed_started_and_removed_and_the_users_data_stay(self):
        self.make_system()
        self.install()
        self.start_as_a_new_user()
        kept = self.users_files()
        self.assertLessEqual(set(MASTERS), {path.name for path in kept})
        self.assertIn("TKW2.ini", {path.name for path in kept})
        for way in ("remove", "purge"):
            with self.subTest(way):
                self.install()
                self.inside("apt-get", way, "--yes", "tickwell")
                self.assertFalse((self.root / "usr/bin/tickwell").exists())
                self.assertFalse((self.root / "usr/share/tickwell").exists())
                self.assertEqual(self.users_files(), kept)

    def make_system(self):
        work = Path(tempfile.mkdtemp(prefix="tickwell-system-"))
        self.addCleanup(shutil.rmtree, work)
        self.root = work / "root"
        run("mmdebstrap", "--mode=root", "--variant=apt", "--include=passwd", f"--aptopt={ANY_AGE}", self.release,
            self.root)
        shutil.copy("/etc/resolv.conf", self.root / "etc/resolv.conf")
        shutil.copy(make_package(work / "made"), self.root / "tmp/tickwell.deb")
        (self.root / "etc/apt/apt.conf.d/99age").write_text(ANY_AGE, encoding="ascii")
        policy = self.root / "usr/sbin/policy-rc.d"  # no services may start: they would conflict with those outside
        policy.write_text("#!/bin/sh\nexit 101\n", encoding="ascii")
        policy.chmod(0o755)
        self.inside("apt-get", "update")
        self.inside("useradd", "--create-home", USER)

    def install(self):
        self.inside("apt-get", "install", "--yes", "./tmp/tickwell.deb")
        self.assertTrue((self.root / "usr/bin/tickwell").exists())

    def within(self, *command):
        return ["unshare", "--mount", "--pid", "--fork", "--kill-child", "sh", "-c", WITHIN, "sh", self.root, *command]

    def inside(self, *command):
        return run(*self.within(*command), env={"PATH": "/usr/sbin:/usr/bin:/sbin:/bin", "DEBIAN_FRONTEND": "noninteractive",
                                                "LC_ALL": "C.UTF-8"}, cwd="/")

    def users_files(self):
        home = self.root / "home" / USER
        files = [path for path in home.rglob("*") if path.is_file() and {"tickwell", "TKW2"} & set(path.parts)]
        return {path: path.read_bytes() for path in files}

    def start_as_a_new_user(self):
        """Starts the program, closes its message about the missing CD drive, waits for the clock and ends the
        program."""
        program = self.session.spawn(self.within(
            "setpriv", f"--reuid={USER}", f"--regid={USER}", "--init-groups", "env", "-i", f"HOME=/home/{USER}",
            "PATH=/usr/bin:/bin", f"DISPLAY={self.session.display}", "LANG=C.UTF-8", "TZ=Asia/Tokyo", "tickwell"))
        windows = self.session.windows
        windows.close_window(windows.wait(name="マルチメディアエラー", timeout=120))
        wait_for(lambda: windows.find(name="マルチメディアエラー") is None, "the notice closed")
        clock = windows.wait(name="Tickwell")
        first = steady(lambda: self.picture(clock), "the first texts")
        wait_for(lambda: self.picture(clock) != first, "the clock in their place", timeout=60)
        artifacts = Path(os.environ[ARTIFACTS_VARIABLE])
        artifacts.mkdir(parents=True, exist_ok=True)
        self.session.screenshot(artifacts / f"fresh_system_{self.release}.png")
        windows.close_window(clock)
        self.assertEqual(program.wait_end(), 0, program.output())

    def picture(self, window):
        return self.session.grab(tuple(self.session.windows.geometry(window))).tobytes()


class Debian12(FreshSystem, TickwellCase):
    release = "bookworm"


class Debian13(FreshSystem, TickwellCase):
    release = "trixie"


class Testing(FreshSystem, TickwellCase):
    release = "forky"


if __name__ == "__main__":
    unittest.main()
