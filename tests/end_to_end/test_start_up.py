# SPDX-License-Identifier: GPL-3.0-or-later
"""The start: the files that it needs, their locations, and the message box for a missing one."""

import os
import shutil
import subprocess
import unittest

from driver.case import TickwellCase
from driver.tickwell import (MASTERS, SILENT, make_folder, program_path, read_settings, settings_path,
                             start_tickwell, tickwell_command, wait_lines, wait_on_screen, write_settings)
from driver.waiting import wait_for

TITLE = "Tickwell スタートエラー"
BODY = "実行に必要なファイルまたは情報が見つかりません。\n"


def peak_memory(pid):
    """The peak memory of a process in bytes."""
    with open(f"/proc/{pid}/status", encoding="ascii") as status:
        return next(int(line.split()[1]) * 1024 for line in status if line.startswith("VmHWM:"))


class StartUp(TickwellCase):
    def assert_refused(self, app, reason, path):
        """Waits for the message box with this reason and, below it, the whole path of a file; closes it, and checks
        that the program ends."""
        box = app.wait(role="alert message", name=TITLE)
        self.session.windows.wait(name=TITLE, pid=app.program.pid)  # really on the screen
        texts = [label.name for label in box.find_all(role="label")]
        self.assertTrue(any(text.startswith(BODY + reason) and str(path) in text for text in texts), texts)
        self.assertEqual([window.name for window in app.children], [TITLE])
        box.find(role="push button").press_and_go()
        self.assertEqual(app.program.wait_end(), 1)

    def test_a_missing_file_is_named(self):
        for name in MASTERS:
            with self.subTest(name):
                folder = make_folder(self.session.directory / f"without-{name}", without={name})
                self.assert_refused(start_tickwell(self.session, folder=folder), name, folder / name)
                self.assertEqual(read_settings(self.session), SILENT)

    def test_a_damaged_database_is_refused(self):
        folder = make_folder(self.session.directory / "damaged")
        database = folder / "DayDate.mdb"
        for content in (b"", b"no database", database.read_bytes()[:5000]):
            with self.subTest(content[:20]):
                database.write_bytes(content)
                self.assert_refused(start_tickwell(self.session, folder=folder), "DayDate.mdb", database)
                self.assertEqual(database.read_bytes(), content)

    def test_a_bad_setting_is_named_and_left_as_it_is(self):
        for section, key in (("SetUp", "Op_Speed"), ("Digital", "TypeHour"), ("SetUp", "Win_Width"), ("Wape", "Time")):
            with self.subTest(key):
                # No other box appears, such as the one about a missing CD drive.
                write_settings(self.session, {section: {key: "<b>wide</b>"}})
                before = settings_path(self.session).read_bytes()
                self.assert_refused(start_tickwell(self.session), f"[{section}] {key}=<b>wide</b>\n",
                                    settings_path(self.session))
                self.assertEqual(settings_path(self.session).read_bytes(), before)

    def test_settings_that_are_no_file_are_named_and_left_as_they_are(self):
        folder = settings_path(self.session).parent
        folder.mkdir(parents=True)
        with open(folder / "large", "wb") as large:
            large.truncate(2 ** 30)
        with open(folder / "lines", "wb") as lines:
            lines.write(b"[SetUp]\n" * 2 ** 23)
        path = settings_path(self.session)
        for kind in ("pipe", "/dev/zero", "/dev/full", "large", "lines"):
            with self.subTest(kind):
                if kind == "pipe":
                    os.mkfifo(path)
                else:
                    path.symlink_to(kind)
                app = start_tickwell(self.session)
                reason = "設定ファイルを読み込めません。\n" + str(path)
                app.wait(role="alert message", name=TITLE)
                self.assertLess(peak_memory(app.program.pid), 2 ** 28)
                self.assert_refused(app, reason, path)
                path.unlink()

    def test_a_day_database_that_is_no_file_is_refused_at_once(self):
        folder = make_folder(self.session.directory / "odd")
        database = folder / "DayDate.mdb"
        content = database.read_bytes()
        for kind in ("pipe", "/dev/zero"):
            with self.subTest(kind):
                database.unlink()
                if kind == "pipe":
                    os.mkfifo(database)
                else:
                    database.symlink_to(kind)
                self.assert_refused(start_tickwell(self.session, folder=folder), "DayDate.mdb", database)
        database.unlink()
        database.write_bytes(content)
        for suffix in ("-journal", "-wal"):
            with self.subTest(suffix):
                journal = folder / f"DayDate.mdb{suffix}"
                os.mkfifo(journal)
                self.assert_refused(start_tickwell(self.session, folder=folder), f"DayDate.mdb\n{journal.name} ",
                                    database)
                journal.unlink()

    def test_it_finds_its_files_wherever_it_is_started(self):
        app = start_tickwell(self.session, cwd="/")
        wait_lines(app, upper="Tickwell Ver.2")
        folder = os.readlink(f"/proc/{app.program.pid}/cwd")
        self.assertEqual(folder, str(self.session.directory / "folder"))

    def test_the_folder_comes_from_the_environment(self):
        folder = make_folder(self.session.directory / "named")
        program = self.session.spawn([program_path()], environment={"TICKWELL_FOLDER": str(folder)})
        wait_lines(self.session.wait_app(program), upper="Tickwell Ver.2")
        self.assertEqual(os.readlink(f"/proc/{program.pid}/cwd"), str(folder))

    def test_an_installed_program_fills_the_users_folder(self):
        prefix = self.session.directory / "usr"
        (prefix / "bin").mkdir(parents=True)
        shutil.copy(program_path(), prefix / "bin/tickwell")
        make_folder(prefix / "share/tickwell")
        write_settings(self.session, SILENT)
        data = self.session.home / ".local/share/tickwell"
        killed = data.parent / ".tickwell.unfinished-aBcDeF"  # as a start leaves it if killed at its first file
        killed.mkdir(parents=True)
        shutil.copy(prefix / "share/tickwell/DayDate.mdb", killed)
        # Relative paths in the desktop's variables are ignored; all stored files are private to the user.
        relative = {name: "relative" for name in ("XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR")}
        program = self.session.spawn(["sh", "-c", 'umask 0; exec "$0"', prefix / "bin/tickwell"], environment=relative,
                                     cwd=self.session.directory)
        app = self.session.wait_app(program)
        wait_lines(app, upper="Tickwell Ver.2")
        self.assertLessEqual(set(MASTERS), set(os.listdir(data)))
        self.assertEqual(os.listdir(data.parent), ["tickwell"])
        shutil.rmtree(settings_path(self.session).parent)
        self.session.windows.close_window(wait_on_screen(self.session, app))
        self.assertEqual(program.wait_end(), 0)
        stored = [data, *data.iterdir(), settings_path(self.session).parent, settings_path(self.session)]
        open_to_others = [path for path in stored if path.stat().st_mode & 0o077]
        self.assertEqual(open_to_others, [])
        self.assertFalse((self.session.directory / "relative").exists() or (data / "relative").exists())

    def test_another_language_of_the_machine_makes_no_difference(self):
        app = start_tickwell(self.session, environment={"LANG": "de_DE.UTF-8", "LC_ALL": "C"},
                             settings={"SetUp": {"Win_Width": "3000.4"}})
        wait_lines(app, upper="Tickwell Ver.2")

    def test_a_mistake_on_the_command_line_is_said(self):
        run = subprocess.run([program_path(), "--loud"], env=self.session.environment, capture_output=True, text=True,
                             timeout=30, check=False)
        self.assertEqual((run.returncode, run.stdout), (2, ""))
        self.assertIn("loud", run.stderr)

    def run_without_screen(self, *arguments, **variables):
        """Runs the program without what names a screen; `variables` are added. Returns the completed process."""
        named = ("DISPLAY", "QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "XDG_SESSION_TYPE")
        environment = {name: value for name, value in self.session.environment.items() if name not in named}
        return subprocess.run([*tickwell_command(self.session), *arguments], env=environment | variables,
                              capture_output=True, text=True, timeout=30, check=False)

    def test_without_a_screen_one_sentence_says_so(self):
        wayland = {"WAYLAND_DISPLAY": "wayland-7"}
        for name, variables, english, japanese in (
                ("nothing", {}, "DISPLAY is not set", "画面がないので"),
                ("Wayland", wayland, "no XWayland", "XWaylandがないので"),
                ("gone", {"DISPLAY": ":63999"}, ":63999", "「:63999」に接続できないので"),
                ("chosen", {"QT_QPA_PLATFORM": "xcb", **wayland}, "no XWayland", "XWaylandがないので"),
                ("all Wayland", {"QT_QPA_PLATFORM": "wayland", **wayland}, '"wayland"', "「wayland」を使えないので"),
                ("a list", {"QT_QPA_PLATFORM": "wayland;xcb", **wayland}, '"wayland;xcb"', "「wayland;xcb」")):
            for locale, said in (("en_US.UTF-8", english), ("ja_JP.UTF-8", japanese)):
                with self.subTest(name, locale=locale):
                    run = self.run_without_screen(LANG=locale, **variables)
                    self.assertEqual((run.returncode, run.stdout, run.stderr.count("\n")), (1, "", 1), run.stderr)
                    self.assertTrue(run.stderr.startswith("tickwell: "), run.stderr)
                    self.assertIn(said, run.stderr)
        run = self.run_without_screen("-display", ":63998", DISPLAY=self.session.display)
        self.assertEqual(run.returncode, 1)
        self.assertIn(":63998", run.stderr)

    def test_commands_and_mistakes_need_no_screen(self):
        for arguments, code in ((("--today",), 0), (("--days", "2026-05-05", "2026-05-06"), 0), (("--version",), 0),
                                (("--help",), 0), (("--loud",), 2), (("-style", "fusion", "--loud"), 2),
                                (("--days", "2026-05-05"), 2), (("-style", "fusion"), 1)):
            with self.subTest(arguments):
                run = self.run_without_screen(*arguments)
                self.assertEqual(run.returncode, code, run.stderr)

    def test_a_platform_without_a_screen_can_be_chosen(self):
        write_settings(self.session, SILENT)
        program = self.session.spawn(tickwell_command(self.session),
                                     environment={"QT_QPA_PLATFORM": "offscreen", "DISPLAY": ""})
        folder = str(self.session.directory / "folder")

        def is_in_its_folder():
            program.check_running()
            return os.readlink(f"/proc/{program.pid}/cwd") == folder
        wait_for(is_in_its_folder, "the start-up without a display")

    def test_version_and_help_need_no_screen(self):
        environment = {name: value for name, value in self.session.environment.items() if name != "DISPLAY"}
        for option, word in (("--version", "2.0.0"), ("--help", "--folder")):
            run = subprocess.run([program_path(), option], env=environment, capture_output=True, text=True, timeout=30,
                                 check=False)
            self.assertEqual((run.returncode, run.stderr), (0, ""))
            self.assertIn(word, run.stdout)


if __name__ == "__main__":
    unittest.main()
