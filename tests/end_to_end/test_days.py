# SPDX-License-Identifier: GPL-3.0-or-later
"""The commands that print days: without a screen, beside a running program, and without changing a file."""

import os
import shutil
import signal
import sqlite3
import subprocess
import threading
import unittest
from contextlib import closing, contextmanager
from typing import NamedTuple

from driver.case import TickwellCase
from driver.tickwell import make_folder, program_path, settings_path, start_tickwell, wait_lines, write_settings

NOBODY = 65534
ALL_DAYS = ("--days", "1900-01-01", "2100-12-31")
ONE_DAY = ("--days", "2026-05-06", "2026-05-06")
ITS_LINE = "2026-05-06\t水\t振替休日\t2026-03-20\t仏滅\t\t\n"
ROWS = (("後", 0, 11, 23, 0), ("第五月曜", 0, 0, 0, 52), ("先", 2026, 0, 23, 0))


class Printed(NamedTuple):
    code: int
    output: str
    errors: str


def today(date):
    """The options for --today on another day. Nothing uses the two descriptors."""
    return "--today", f"--virtual-time=3,4,{date}T12:00:00,0"


def contents(folder):
    """The files of a folder, with every attribute that a write would change."""
    return {path.name: (path.read_bytes(), path.stat().st_mtime_ns, path.stat().st_ino)
            for path in folder.iterdir() if path.is_file()}


class Days(TickwellCase):
    def setUp(self):
        super().setUp()
        self.folder = make_folder(self.session.directory / "folder")
        self.database = self.folder / "DayDate.mdb"
        with closing(sqlite3.connect(self.database)) as database, database:
            database.executemany("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES (?,?,?,?,?)", ROWS)

    def command(self, arguments):
        return [program_path(), "--folder", self.folder, *arguments]

    def screenless(self, environment=None):
        own = {name: value for name, value in self.session.environment.items() if name != "DISPLAY"}
        return own | (environment or {})

    def run_days(self, *arguments, environment=None, **options):
        options = {"stdout": subprocess.PIPE, "stderr": subprocess.PIPE, "timeout": 30} | options
        run = subprocess.run(self.command(arguments), env=self.screenless(environment), check=False, **options)
        return Printed(run.returncode, (run.stdout or b"").decode("utf-8"), run.stderr.decode("utf-8"))

    def assert_fails(self, printed, code, *words):
        """Checks that exactly one line was printed, on standard error, with all these words."""
        self.assertEqual((printed.code, printed.output), (code, ""))
        self.assertRegex(printed.errors, r"\Atickwell: [^\n]+\n\Z")
        for word in words:
            self.assertIn(str(word), printed.errors)

    @contextmanager
    def unchanged(self):
        before = contents(self.folder)
        yield
        self.assertEqual(contents(self.folder), before)

    def test_days_are_printed_and_no_file_is_changed(self):
        with self.unchanged():
            self.assertEqual(self.run_days(*ONE_DAY), (0, ITS_LINE, ""))
            self.assertEqual(self.run_days("--days", "2026-03-30", "2026-03-30").output,
                             "2026-03-30\t月\t\t2026-02-12\t先勝\t\t第五月曜\n")
            self.assertEqual(self.run_days(*today("2026-11-23")), (0, "後\n先\n勤労感謝の日\n", ""))
            self.assertEqual(self.run_days(*today("2026-11-25")), (0, "", ""))
            self.assertEqual(self.run_days("--today").code, 0)
            everything = self.run_days(*ALL_DAYS)
            self.assertEqual((everything.code, everything.errors), (0, ""))
            lines = everything.output.splitlines()
            self.assertEqual((len(lines), lines[0][:10], lines[-1][:10]), (73414, "1900-01-01", "2100-12-31"))
            self.assertEqual({line.count("\t") for line in lines}, {6})
        self.assertFalse(settings_path(self.session).exists())

    def test_today_goes_by_the_settings(self):
        self.assertEqual(self.run_days(*today("2026-05-06")).output, "")
        self.assertEqual(self.run_days(*today("2026-03-30")).output, "")
        write_settings(self.session, {"Calendar": {"HolidaysByLaw": "True"},
                                      "Corrections": {"WeekdayAnniversaries": "True"}})
        self.assertEqual(self.run_days(*today("2026-05-06")).output, "振替休日\n")
        self.assertEqual(self.run_days(*today("2026-03-30")).output, "第五月曜\n")

    def test_a_running_program_is_no_obstacle(self):
        app = start_tickwell(self.session, folder=self.folder)
        wait_lines(app, upper="Tickwell Ver.2")
        with self.unchanged():
            self.assertEqual(self.run_days(*ONE_DAY), (0, ITS_LINE, ""))
            self.assertEqual(self.run_days(*today("2026-11-23")), (0, "後\n先\n勤労感謝の日\n", ""))
        app.program.check_running()

    def test_the_folder_is_found_as_the_program_finds_it(self):
        command = [program_path(), *ONE_DAY]
        for environment in ({"TICKWELL_FOLDER": str(self.folder)}, {"TICKWELL_FOLDER": "folder"}):
            run = subprocess.run(command, env=self.screenless(environment), cwd=self.session.directory, timeout=30,
                                 capture_output=True, check=False)
            self.assertEqual((run.returncode, run.stdout.decode(), run.stderr), (0, ITS_LINE, b""))
        alone = self.session.directory / "alone/tickwell"
        alone.parent.mkdir()
        shutil.copy(program_path(), alone)
        users = self.session.home / ".local/share/tickwell"
        run = subprocess.run([alone, *ONE_DAY], env=self.screenless(), timeout=30, capture_output=True, check=False)
        self.assert_fails(Printed(run.returncode, run.stdout.decode(), run.stderr.decode()), 1, users)
        self.assertFalse(users.exists())

    def test_files_that_may_only_be_read(self):
        program = self.session.directory / "tickwell"  # other users may have no access to the build
        shutil.copy(program_path(), program)
        empty = self.session.directory / "empty"
        empty.mkdir()
        self.session.directory.chmod(0o711)
        self.database.chmod(0o444)
        self.folder.chmod(0o555)
        self.addCleanup(self.folder.chmod, 0o755)
        user = {"user": NOBODY, "group": NOBODY, "extra_groups": []} if os.geteuid() == 0 else {}
        with self.unchanged():
            for arguments, output in ((ONE_DAY, ITS_LINE), (today("2026-11-23"), "後\n先\n勤労感謝の日\n")):
                run = subprocess.run([program, "--folder", self.folder, *arguments], capture_output=True, timeout=30,
                                     env=self.screenless({"XDG_CONFIG_HOME": str(empty)}), check=False, **user)
                self.assertEqual((run.returncode, run.stdout.decode(), run.stderr), (0, output, b""))

    def test_a_locked_database_is_not_waited_for(self):
        with closing(sqlite3.connect(self.database, isolation_level=None)) as database:
            database.execute("BEGIN EXCLUSIVE")
            for arguments in (ONE_DAY, ("--today",)):
                self.assert_fails(self.run_days(*arguments), 1, self.database, "ほかのプログラムで使用中です。")
        self.assertEqual(self.run_days(*ONE_DAY).output, ITS_LINE)

    def test_a_database_that_is_being_replaced(self):
        """As a compaction does it: a new file takes the name of the old one."""
        whole = self.database.read_bytes()
        is_over = threading.Event()

        def replace():
            while not is_over.is_set():
                compacted = self.folder / "BUDate.mdb"
                compacted.write_bytes(whole)
                compacted.replace(self.database)
        replacing = threading.Thread(target=replace)
        replacing.start()
        try:
            printed = [self.run_days(*ONE_DAY) for _ in range(50)]
        finally:
            is_over.set()
            replacing.join()
        for each in printed:
            if each != (0, ITS_LINE, ""):
                self.assert_fails(each, 1, self.database)
        self.assertIn((0, ITS_LINE, ""), printed)

    def test_what_is_missing_is_named_and_not_made(self):
        missing = self.session.directory / "missing"
        for arguments in (ONE_DAY, ("--today",)):
            printed = self.run_days(*arguments, "--folder", missing)
            self.assert_fails(printed, 1, f"tickwell: {missing}: フォルダーがありません。")
            self.assertFalse(missing.exists())
        self.database.unlink()
        with self.unchanged():
            for arguments in (ONE_DAY, ("--today",)):
                self.assert_fails(self.run_days(*arguments), 1, self.database)

    def test_a_damaged_database_is_named_and_left_as_it_is(self):
        whole = self.database.read_bytes()
        jet = b"\0\1\0\0Standard Jet DB\0" + bytes(20000)
        for content in (b"", b"no database", whole[:5000], jet):
            with self.subTest(content[:20]):
                self.database.write_bytes(content)
                with self.unchanged():
                    for arguments in (ONE_DAY, ("--today",)):
                        self.assert_fails(self.run_days(*arguments), 1, self.database)

    def test_settings_that_cannot_be_read_are_named(self):
        settings_path(self.session).mkdir(parents=True)
        self.assert_fails(self.run_days("--today"), 1,
                          f"tickwell: 設定ファイルを読み込めません。 {settings_path(self.session)}: ")
        self.assertEqual(self.run_days(*ONE_DAY), (0, ITS_LINE, ""))
        settings_path(self.session).rmdir()
        write_settings(self.session, {"Calendar": {"HolidaysByLaw": "?"}})
        self.assert_fails(self.run_days("--today"), 1, settings_path(self.session), "[Calendar] HolidaysByLaw=?")

    def test_a_damaged_official_list_is_only_a_warning(self):
        official = self.folder / "Syukujitsu.csv"
        official.write_text("2026/5/7,臨時の休日\n2026年\n", encoding="utf-8")
        printed = self.run_days(*ONE_DAY)
        self.assertEqual((printed.code, printed.output), (0, ITS_LINE))
        self.assertRegex(printed.errors, r"\A[^\n]*Syukujitsu\.csv[^\n]*2行目[^\n]*\n\Z")

    def test_a_reader_that_has_enough(self):
        for restores_signals in (True, False):  # Python ignores SIGPIPE; its children inherit that unless restored
            with self.subTest(restores_signals):
                process = subprocess.Popen(self.command(ALL_DAYS), env=self.screenless(), stdout=subprocess.PIPE,
                                           stderr=subprocess.PIPE, restore_signals=restores_signals)
                with process:
                    self.assertTrue(process.stdout.readline().startswith(b"1900-01-01\t"))
                    process.stdout.close()
                    self.assertEqual(process.stderr.read(), b"")
                    self.assertEqual(process.wait(30), 0)
        self.assertEqual(signal.getsignal(signal.SIGPIPE), signal.SIG_IGN)

    def test_output_that_cannot_be_written_is_an_error(self):
        with open("/dev/full", "wb") as full, self.unchanged():
            self.assert_fails(self.run_days(*ALL_DAYS, stdout=full), 1, "No space left on device")
            closed = subprocess.run(["sh", "-c", '"$@" >&-', "sh", *self.command(ONE_DAY)], env=self.screenless(),
                                    stderr=subprocess.PIPE, timeout=30, check=False)
            self.assert_fails(Printed(closed.returncode, "", closed.stderr.decode()), 1, "Bad file descriptor")

    def test_the_output_is_utf_8_in_every_locale(self):
        for locale in ("C", "POSIX", "ja_JP.eucJP", "de_DE.ISO-8859-1", ""):
            with self.subTest(locale):
                self.assertEqual(self.run_days(*ONE_DAY, environment={"LC_ALL": locale}), (0, ITS_LINE, ""))

    def test_mistakes_on_the_command_line_are_named(self):
        day = "2026-05-06"
        for arguments, word in (
                (("--today", "--loud"), "loud"), (("--today", "now"), "now"), (("--today", "--menu"), "--menu"),
                (("--today", *ONE_DAY), "--days"), (("--days",), "--days"), (("--days", day), "--days"),
                (("--days", day, "2026-02-29"), "2026-02-29"), (("--days", day, day, "extra"), "extra"),
                (("--days", "2026-05-07", day), "2026-05-07"), (("--days", "1899-12-31", day), "1899-12-31"),
                (("--days", day, "2101-01-01"), "2101-01-01"), (("--days", day, "two\nlines"), "two lines")):
            with self.subTest(arguments), self.unchanged():
                self.assert_fails(self.run_days(*arguments), 2, word)

    def test_the_help_is_in_the_users_language(self):
        for locale, beginning in (("ja_JP.UTF-8", "使い方: tickwell "), ("en_US.UTF-8", "Usage: tickwell "),
                                  ("C", "Usage: tickwell ")):
            printed = self.run_days("--help", environment={"LANG": locale})
            self.assertEqual((printed.code, printed.errors), (0, ""))
            self.assertTrue(printed.output.startswith(beginning), printed.output)
            for option in ("--today", "--days"):
                self.assertIn(option, printed.output)


if __name__ == "__main__":
    unittest.main()
