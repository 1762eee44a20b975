# SPDX-License-Identifier: GPL-3.0-or-later
"""The test driver itself: it must report correctly and leave nothing behind."""

import os
import shutil
import signal
import sys
import tempfile
import time
import unittest
from datetime import datetime
from pathlib import Path
from unittest import mock

from driver import pictures, processes, settings_file, tickwell
from driver.accessible import Gone
from driver.answering import Answering, is_reading, keeps_answering
from driver.case import ARTIFACTS_VARIABLE, TickwellCase
from driver.desktop import Session
from driver.program import Program, ProgramEnded
from driver.samples.window import COMPUTED
from driver.virtual_time import VirtualTime, VirtualTimeError
from driver.waiting import TimedOut, wait_for

HERE = Path(__file__).parent
SAMPLES = HERE / "driver/samples"
WALL, TICK = "1998-10-03T23:59:57", 5000


class FolderCase(unittest.TestCase):
    """A test with an empty private folder."""

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="driver-"))
        self.addCleanup(shutil.rmtree, self.folder)


class VirtualTimeTest(FolderCase):
    def setUp(self):
        super().setUp()
        self.time = VirtualTime(WALL, TICK)
        self.addCleanup(self.time.close)
        self.program = Program([sys.executable, SAMPLES / "virtual_clock.py", self.time.argument], os.environ,
                               self.folder / "log", pass_fds=self.time.pass_fds)
        self.addCleanup(self.program.stop)
        self.time.started()

    def test_commands(self):
        rows = [
            ("over midnight", lambda: self.time.advance(3000), "1998-10-04T00:00:00", 8000),
            ("by nothing", lambda: self.time.advance(0), "1998-10-04T00:00:00", 8000),
            ("into a second", lambda: self.time.advance(400), "1998-10-04T00:00:00.400", 8400),
            ("to the next timer", self.time.next, "1998-10-04T00:00:01", 9000),
            ("asleep", lambda: self.time.suspend(1300), "1998-10-04T00:00:02.300", 10300),
            ("to the timer that slept, too", self.time.next, "1998-10-04T00:00:03.300", 11300),
            ("back to 1989", lambda: self.time.set_wall("1989-01-08T00:00:00"), "1989-01-08T00:00:00", 11300),
            ("over the tick's end", lambda: self.time.advance(2**31 - 11300), "1989-02-01T20:31:12.348",
             -2**31),
        ]
        for row, command, wall, tick in rows:
            with self.subTest(row):
                self.assertEqual(command(), (datetime.fromisoformat(wall), tick))

    def test_refused_command_is_an_error(self):
        with self.assertRaisesRegex(VirtualTimeError, "error advance -1"):
            self.time.advance(-1)
        self.assertEqual(self.time.advance(1).tick, TICK + 1)  # the answer belongs to this command

    def test_silence_ends(self):
        with self.assertRaises(TimedOut):
            self.time.advance(13, timeout=0.1)

    def test_death_is_seen_at_once(self):
        for row in ("while it should answer", "before it is asked"):
            with self.subTest(row), self.assertRaisesRegex(VirtualTimeError, "gone"):
                self.time.advance(666)
            self.assertEqual(self.program.wait_end(), 1)

    def test_close_leaves_no_descriptor(self):
        before = set(os.listdir("/proc/self/fd"))
        VirtualTime(WALL).close()
        self.assertEqual(set(os.listdir("/proc/self/fd")), before)
        self.time.close()
        self.time.close()
        self.assertEqual(self.program.wait_end(), 0)  # it has read end of file from the command pipe


class SettingsFileTest(FolderCase):
    def test_what_is_written_is_read(self):
        path = self.folder / "deep/down/TKW2.ini"
        settings = {"General": {"Title": "日本語 の題", "Folder": "C:\\new\\r", "Blanks": " a b\t",
                                "Lines": "1\n2\r\n3", "Equals": "a=b", "Empty": "", "One": " ", "Zero": "\0"},
                    "Empty": {}}
        settings_file.write_settings(path, settings)
        self.assertEqual(settings_file.read_settings(path), settings)

    def test_as_it_stands_in_the_file(self):
        path = self.folder / "TKW2.ini"
        settings_file.write_settings(path, {"A": {"Number": 3, "Path": "C:\\x", "Blank": " x y "}})
        self.assertEqual(path.read_bytes(), b"[A]\nNumber=3\nPath=C:\\\\x\nBlank=\\sx y\\s\n")

    def test_a_hand_written_file(self):
        path = self.folder / "TKW2.ini"
        path.write_bytes(b"\xef\xbb\xbf[ A ]\r\n; x=1\r\n# y=1\r\n key = C:\\data \r\nkey=2\r\n=3\r\nnone\r\n"
                         b"[B]\nb=1\n[A]\nc=4")
        self.assertEqual(settings_file.read_settings(path),
                         {"A": {"key": "C:\\data", "c": "4"}, "B": {"b": "1"}})


class SessionTest(FolderCase):
    """Sessions after their end, however they ended."""

    def assert_nothing_left(self, directory):
        self.assertEqual(processes.marked(directory), [])
        self.assertFalse(directory.exists())

    def test_nothing_is_left(self):
        Session().close()  # during the first session, libraries open descriptors and keep them
        descriptors = len(os.listdir("/proc/self/fd"))
        with Session() as session:
            # The screen, two buses, the registry and the window manager.
            self.assertGreaterEqual(len(processes.marked(session.directory)), 5)
            # One process that ignores SIGTERM, and one that moves to its own process group.
            script = "trap : TERM; setsid sleep 1000 & echo up; wait; sleep 1000"
            stubborn = session.spawn(["sh", "-c", script])
            stubborn.wait_output("up")
            stubborn.stop(patience=0.1)
            self.assertEqual(stubborn.exit_code, -signal.SIGKILL)
            self.assertGreaterEqual(len(processes.marked(session.directory)), 6)  # the sleeper is still running
        self.assert_nothing_left(session.directory)
        session.close()
        self.assertEqual(len(os.listdir("/proc/self/fd")), descriptors)

    def test_what_does_not_end_when_asked_is_killed(self):
        mark = str(self.folder)
        program = Program(["sh", "-c", "trap '' TERM; echo up; while :; do sleep 1; done"],
                          os.environ | {processes.MARK: mark}, self.folder / "log")
        self.addCleanup(program.stop, patience=0)
        program.wait_output("up")
        self.assertIn(program.pid, processes.marked(mark))
        processes.end_marked(mark, patience=0.1)
        self.assertEqual(program.exit_code, -signal.SIGKILL)

    def test_what_is_started_meanwhile_is_asked_too(self):
        mark = str(self.folder)
        parent = Program([sys.executable, SAMPLES / "successor.py"], os.environ | {processes.MARK: mark},
                         self.folder / "log")
        self.addCleanup(parent.stop, patience=0)
        parent.wait_output("up")
        processes.end_marked(mark)
        self.assertIn("the successor was asked", parent.output())
        self.assertEqual(processes.marked(mark), [])

    def test_nothing_is_left_of_a_session_that_fails_to_start(self):
        with mock.patch.object(tempfile, "tempdir", str(self.folder)), \
                self.assertRaisesRegex(ProgramEnded, "no-such-manager"):
            Session(window_manager=("no-such-manager",))
        self.assertEqual(os.listdir(self.folder), [])

    def test_nothing_runs_on_when_its_owner_is_killed(self):
        code = "import time; from driver.desktop import Session\n" \
               "session = Session(); print(session.directory, flush=True); time.sleep(999)"
        environment = os.environ | {"PYTHONPATH": str(HERE)}
        owner = Program([sys.executable, "-c", code], environment, self.folder / "log")
        self.addCleanup(owner.stop)
        owner.wait_output("\n")
        directory = Path(owner.output().strip())
        self.addCleanup(shutil.rmtree, directory)
        self.assertTrue(processes.marked(directory))
        owner.kill()
        wait_for(lambda: not processes.marked(directory), "the session's end")

    def test_environment(self):
        outside = {"XDG_DATA_HOME": "/real", "DBUS_SESSION_BUS_ADDRESS": "unix:path=/real"}
        with mock.patch.dict(os.environ, outside), \
                Session(window_manager=None, environment={"EXTRA": "1"}) as session:
            program = session.spawn(["env"], environment={"MORE": "2"})
            self.assertEqual(program.wait_end(), 0)
            given = dict(line.split("=", 1) for line in program.output().splitlines())
        self.assertEqual({given[name] for name in ("TZ", "EXTRA", "MORE")}, {"Asia/Tokyo", "1", "2"})
        for name in ("HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR", "TMPDIR"):
            self.assertIn(str(session.directory), given[name])
        self.assertNotIn("/real", given["DBUS_SESSION_BUS_ADDRESS"])


class WindowTest(TickwellCase):
    def show(self, name, *place, colour="336699"):
        program = self.session.spawn([sys.executable, SAMPLES / "window.py", name, *place, colour])
        program.wait_output("shown")
        return program, self.session.windows.wait(name=name, pid=program.pid)

    def test_place_and_colour(self):
        _, xid = self.show("窓", 300, 200, 120, 80)
        geometry = self.session.windows.geometry(xid)
        self.assertEqual(geometry[2:], (120, 80))
        self.assertEqual(self.session.grab(geometry).size, (120, 80))
        painted = [(120 * 80, (0x33, 0x66, 0x99))]
        wait_for(lambda: pictures.colours(self.session.grab(geometry)) == painted, "its colour")

    def test_order_focus_and_closing(self):
        windows = self.session.windows
        first, lower = self.show("first", 100, 100, 200, 200)
        second, upper = self.show("second", 400, 100, 200, 200)
        wait_for(lambda: windows.is_above(upper, lower), "the newer one on top")
        self.session.hand.click((windows.geometry(lower).x + 5, windows.geometry(lower).y + 5))
        wait_for(lambda: windows.is_above(lower, upper), "the one clicked on top")
        wait_for(lambda: windows.focus_owner() == lower, "its focus")
        windows.close_window(lower)
        self.assertEqual(first.wait_end(), 0)
        self.assertIn("closed", first.output())
        wait_for(lambda: windows.find(name="first") is None, "its window gone")
        self.assertIsNone(second.exit_code)
        with self.assertRaisesRegex(TimedOut, "second"):  # the error lists the existing windows
            windows.wait(name="first", timeout=0.1)

    def test_mouse_and_keyboard(self):
        program, xid = self.show("hand", 300, 200, 120, 80)
        hand, (x, y, *_) = self.session.hand, self.session.windows.geometry(xid)
        rows = [
            ("click", lambda: hand.click((x + 7, y + 9), 3), ["pressed 3 at 7 9", "released 3 at 7 9"]),
            ("drag", lambda: hand.drag((x + 7, y + 9), (x + 50, y + 60)),
             ["pressed 1 at 7 9", "released 1 at 50 60"]),
            ("wheel", lambda: hand.wheel((x + 1, y + 1), -2), ["pressed 4 at 1 1", "released 4 at 1 1"] * 2),
            ("keys", lambda: hand.type("ab"), ["key 97", "key 98"]),
        ]
        wait_for(lambda: self.session.windows.focus_owner() == xid, "the focus")
        for row, command, expected in rows:
            with self.subTest(row):
                before = len(program.output())
                command()
                program.wait_output(expected[-1])
                wait_for(lambda: len(program.output()[before:].splitlines()) >= len(expected), row)
                self.assertEqual(program.output()[before:].splitlines(), expected)

    def test_how_long_a_window_does_not_answer(self):
        program, xid = self.show("asked", 300, 200, 120, 80)
        with keeps_answering(self.session, program, xid):
            time.sleep(0.1)  # several pings
        for row, wakes_up in (("and answers again", True), ("and still does not", False)):
            with self.subTest(row):
                with self.assertRaisesRegex(AssertionError, "did not answer"), \
                        keeps_answering(self.session, program, xid, limit=0.4):
                    os.kill(program.pid, signal.SIGSTOP)
                    time.sleep(0.5)
                    if wakes_up:
                        os.kill(program.pid, signal.SIGCONT)
                os.kill(program.pid, signal.SIGCONT)

    def test_disk_reads_are_distinguished_from_other_waits(self):
        reading, fault, writing = "17 0xe 0x56", "-1 0x7ffd 0x7f28", "75 0xe 0x0"
        for row, stat, syscall, expected in (("a read", "1 (a) D 1 1", reading, True),
                                             ("a page fault", "1 (a b) D 1 1", fault, True),
                                             ("a write to the disk", "1 (a) D 1 1", writing, False),
                                             ("a read from a pipe", "1 (a) S 1 1", "0 0x3 0x56", False),
                                             ("at work", "1 (D) R 1 1", "running", False),
                                             ("ended", "", "", False)):
            with self.subTest(row):
                self.assertEqual(bool(is_reading(stat, syscall)), expected)

    def test_computing_counts_on_request(self):
        program, xid = self.show("asked", 300, 200, 120, 80)
        for computing in (False, True):
            measured = Answering(self.session, program, xid, computing)
            os.kill(program.pid, signal.SIGUSR1)
            time.sleep(2)
            self.assertEqual(measured.longest() > COMPUTED / 2, computing)


class TickwellTest(TickwellCase):
    window_manager = None

    def setUp(self):
        """Replaces the program under test by a fake one with master files next to it."""
        super().setUp()
        build = self.session.directory / "build"
        build.mkdir()
        for master in tickwell.MASTERS:
            (build / master).write_text(f"contents of {master}")
            (build / master).chmod(0o444)
        program = build / "tickwell"
        program.write_text(f"#!/bin/sh\nexport PYTHONPATH={HERE}\n"
                           f'exec {sys.executable} -m driver.samples.two_lines "$@"\n')
        program.chmod(0o755)
        self.enterContext(mock.patch.dict(os.environ, {tickwell.PROGRAM_VARIABLE: str(program)}))

    def test_lines_follow_the_time(self):
        with VirtualTime(WALL, TICK) as time:
            app = tickwell.start_tickwell(self.session, virtual_time=time)
            self.assertEqual(tickwell.lines(app), ("23:59:57", "tick 5000"))
            time.advance(4000)
            self.assertEqual(tickwell.wait_lines(app, lower="tick 9000"), ("00:00:01", "tick 9000"))
            tickwell.wait_lines(app, upper=lambda text: text.startswith("00"))
            with self.assertRaisesRegex(TimedOut, "they read .*tick 9000"):
                tickwell.wait_lines(app, upper="12:00:00", timeout=0.1)

    def test_start(self):
        app = tickwell.start_tickwell(self.session, settings={"A": {"b": 1}}, arguments=["--more"])
        folder = self.session.directory / "folder"
        self.assertEqual(app.program.output(), f"--folder {folder} --more\n")
        self.assertEqual(sorted(os.listdir(folder)), sorted(tickwell.MASTERS))
        self.assertEqual(tickwell.read_settings(self.session), tickwell.SILENT | {"A": {"b": "1"}})
        self.assertEqual(tickwell.settings_path(self.session),
                         Path(self.session.environment["XDG_CONFIG_HOME"], "TKW2/TKW2.ini"))

    def test_folder(self):
        folder = tickwell.make_folder(self.session.directory / "some/where", without=("Help.hlp",))
        self.assertEqual(set(tickwell.MASTERS) - set(os.listdir(folder)), {"Help.hlp"})
        self.assertEqual((folder / "TKW05.wav").read_text(), "contents of TKW05.wav")
        self.assertTrue((folder / "TKW05.wav").stat().st_mode & 0o200)

    def test_finding(self):
        app = tickwell.start_tickwell(self.session)
        app.wait(role="popup menu", name="メニュー", showing=True)
        wide = app.find_all(role="label", which=lambda node: node.extents[2] == 120)
        self.assertEqual([node.name for node in wide], ["tick 0", "00:00:00"])
        self.assertIsNone(app.find(role="label", showing=False))
        listed = "there is:\napplication 'two_lines'.*\n  alert message 'Tickwell'"
        with self.assertRaisesRegex(TimedOut, listed):
            app.wait(name="no such thing", timeout=0.1)

    def test_a_crash_is_reported_at_once(self):
        app = tickwell.start_tickwell(self.session)
        app.program.kill()
        with self.assertRaises(Gone):
            app.wait(name="anything")
        with self.assertRaisesRegex(ProgramEnded, "No such file"):
            self.session.start(["/no/such/program"])


class ArtifactsTest(FolderCase):
    def test_only_a_failed_test_leaves_artifacts(self):
        class Inner(TickwellCase):
            window_manager = None

            def test_passes(self):
                self.session.spawn(["echo", "fine"]).wait_output("fine")

            def test_fails(self):
                self.session.spawn(["echo", "trouble"]).wait_output("trouble")
                self.fail()

        result = unittest.TestResult()
        kept_in = {ARTIFACTS_VARIABLE: str(self.folder / "kept")}
        with mock.patch.dict(os.environ, kept_in), mock.patch("builtins.print") as said:
            for name in ("test_passes", "test_fails"):
                Inner(name).run(result)
        self.assertEqual((result.testsRun, len(result.failures), result.errors), (2, 1, []))
        kept = sorted((self.folder / "kept").iterdir())
        logs, pictures = ([path for path in kept if path.suffix == suffix] for suffix in (".log", ".png"))
        self.assertEqual((len(pictures), len(logs) + len(pictures)), (1, len(kept)))
        self.assertEqual([log.read_text() for log in logs if "-echo" in log.name], ["trouble\n"])
        self.assertEqual([log for log in logs if "Xvfb" in log.name], logs[:1])  # the session's own as well
        for path, line in zip(kept, said.call_args_list):
            self.assertIn("test_fails", path.name)
            self.assertIn(str(path), line.args[0])


if __name__ == "__main__":
    unittest.main()
