# SPDX-License-Identifier: GPL-3.0-or-later
"""Commands of other programs, sent over the session bus and from the shell."""

import os
import signal
import subprocess
import time
import unittest
from typing import NamedTuple

from gi.repository import Gio, GLib

from driver import dbus_calls
from driver.answering import keeps_answering
from driver.footprint import anonymous_memory
from driver.settings_case import SettingsCase, button, check
from driver.tickwell import (program_path, settings_path, start_tickwell, wait_lines, wait_on_screen,
                             write_settings)
from driver.waiting import SLOWNESS, wait_for

NAME = "local.tickwell.tickwell"
PATH = "/local/tickwell/tickwell"
CLOCK = (NAME, PATH, NAME)
ON = {"Remote": {"AcceptsCommands": "True"}}
BOX = check("ほかのプログラムからの操作を受ける")
NOBODY = "no running clock accepts commands (page 連携 of its settings)"
LINES = 20  # pixels; the main window's upper line is above this y
CALLS = 1000
BUS_PATIENCE = 8.0 * SLOWNESS  # s; sd-bus alone would wait for 25
MOST_MEMORY = 20 * 2**20  # bytes that a flood of calls may leave behind


class Printed(NamedTuple):
    code: int
    output: str
    errors: str


class RemoteCase(SettingsCase):
    def setUp(self):
        super().setUp()
        self.bus = dbus_calls.connect(self.session.environment["DBUS_SESSION_BUS_ADDRESS"])
        self.addCleanup(dbus_calls.close, self.bus)

    def start(self, settings=ON, **options):
        super().start(settings, **options)
        if settings is ON:
            self.wait_offered()

    def names(self):
        """All well-known names on the bus."""
        return {name for name in dbus_calls.call(self.bus, dbus_calls.BUS, "ListNames")[0] if not name.startswith(":")}

    def wait_offered(self, offered=True):
        wait_for(lambda: (NAME in self.names()) == offered, f"the commands on the bus: {offered}")

    def call(self, method, signature="()", *arguments):
        return dbus_calls.call(self.bus, CLOCK, method, signature, *arguments)

    def refused(self, method, signature="()", *arguments):
        """The error name and the message of a call that is refused."""
        with self.assertRaises(GLib.Error) as caught:
            self.call(method, signature, *arguments)
        return Gio.dbus_error_get_remote_error(caught.exception), caught.exception.message.partition(": ")[2]

    def run_command(self, *arguments, language="C", without=()):
        """Runs the program without a screen."""
        environment = {name: value for name, value in self.session.environment.items()
                       if name != "DISPLAY" and name not in without}
        run = subprocess.run([program_path(), *arguments], env=environment | {"LANG": language}, timeout=30,
                             capture_output=True, check=False)
        return Printed(run.returncode, run.stdout.decode("utf-8"), run.stderr.decode("utf-8"))

    def assert_nobody(self, **options):
        for arguments in (("--show", "memory"), ("--stopwatch", "read"), ("--timer", "5m30s", "卵")):
            self.assertEqual(self.run_command(*arguments, **options), (3, "", f"tickwell: {NOBODY}\n"))


class Off(RemoteCase):
    def test_by_default_nothing_is_on_the_bus(self):
        before = self.names()
        self.start(settings=None)
        stored = settings_path(self.session).read_bytes()
        self.choose("ｽﾄｯﾌﾟｳｫｯﾁ")
        wait_lines(self.app, upper="ストップウォッチ")
        time.sleep(2)  # real time, twice as long as it takes to offer the commands
        self.assertEqual(self.names(), before)
        self.assert_nobody()
        owner = dbus_calls.call(self.bus, dbus_calls.BUS, "ListNames")[0]
        for name in [name for name in owner if name.startswith(":")]:
            if dbus_calls.process_of(self.bus, name) == self.app.program.pid:
                with self.assertRaises(GLib.Error) as caught:
                    dbus_calls.call(self.bus, (name, PATH, NAME), "Today")
                self.assertIn(Gio.dbus_error_get_remote_error(caught.exception).rpartition(".")[2],
                              ("UnknownObject", "UnknownMethod"))
        self.assertEqual(settings_path(self.session).read_bytes(), stored)
        self.quit()
        self.assertNotIn(b"Remote", settings_path(self.session).read_bytes())

    def test_no_clock_and_no_bus(self):
        self.assert_nobody()
        self.assert_nobody(without=("DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR"))
        japanese = self.run_command("--show", "memory", language="ja_JP.UTF-8")
        self.assertEqual(japanese, (3, "", "tickwell: 操作を受ける時計が動いていません"
                                           "（環境設定の「連携」で受けるようにできます）。\n"))
        self.assertFalse(settings_path(self.session).exists())

    def test_the_settings_switch_it_on_and_off(self):
        self.start(settings=None)
        self.open()
        self.page("連携")
        self.assertFalse(self.is_on(BOX))
        self.click(BOX, button("適用"))
        self.wait_offered()
        self.assertEqual(self.run_command("--show", "memory"), (0, "", ""))
        wait_lines(self.app, upper="メモリー使用率")
        self.click(BOX, button("OK"))
        self.wait_closed()
        self.wait_offered(False)
        self.assert_nobody()
        self.open()
        self.page("連携")
        self.click(BOX, button("OK"))
        self.wait_closed()
        self.wait_offered()
        self.assertEqual(self.run_command("--show", "clock"), (0, "", ""))
        self.quit()
        self.assertEqual(self.stored("Remote"), {"AcceptsCommands": "True"})
        self.wait_offered(False)


class Calls(RemoteCase):
    def test_a_function_is_shown_and_not_stored(self):
        self.start()
        before = settings_path(self.session).read_bytes()
        for function, upper in (("memory", "メモリー使用率"), ("1", "Windows使用時間"), ("2", "ストップウォッチ"),
                                ("battery", "バッテリー残量"), ("memory", "メモリー使用率")):
            self.assertEqual(self.call("Show", "(s)", function), ())
            wait_lines(self.app, upper=upper)
        self.assertEqual(settings_path(self.session).read_bytes(), before)
        self.quit()
        self.assertEqual(self.stored("SetUp")["Function"], "0")

    def test_the_stopwatch_is_run(self):
        self.start()
        self.assertEqual(self.call("Stopwatch", "(s)", "start"), (0,))
        wait_lines(self.app, upper="ストップウォッチ")
        self.time.advance(61_234)
        self.assertEqual(self.call("Stopwatch", "(s)", "lap"), (61_234,))
        wait_lines(self.app, upper="Lapse1  0:01'01\"234")
        self.assertEqual(self.refused("Stopwatch", "(s)", "start"),
                         (f"{NAME}.Error.StopwatchIsRunning",
                          "The stopwatch is running; stop, lap and read are possible."))
        self.time.advance(766)
        self.assertEqual(self.call("Stopwatch", "(s)", "stop"), (62_000,))
        wait_lines(self.app, lower="0:01'02\"000")
        self.assertEqual(self.call("Stopwatch", "(s)", "read"), (62_000,))
        self.assertEqual(self.call("Stopwatch", "(s)", "reset"), (0,))
        wait_lines(self.app, upper="ストップウォッチ", lower="0:00'00\"000")
        self.quit()
        self.assertEqual(self.stored("SetUp")["Function"], "0")

    def test_a_timer_runs_under_its_name(self):
        self.start()
        self.assertEqual(self.call("Timer", "(is)", 330_000, "茹で卵"), (1,))
        wait_lines(self.app, upper="茹で卵")
        self.assertEqual(self.refused("Timer", "(is)", 1000, "")[0], f"{NAME}.Error.TimerIsRunning")
        self.call("Show", "(s)", "timer")
        self.time.advance(270_000)
        wait_lines(self.app, lower=lambda text: text.startswith("0:01'00"))
        self.time.advance(60_000)
        texts = [self.app.wait(role="label", name=text, showing=True, which=lambda node: node.extents[1] > LINES)
                 for text in ("茹で卵", "指定の時間が経過しました")]
        self.assertLess(texts[0].extents[1], texts[1].extents[1])

    def test_todays_names(self):
        self.start(wall="2026-11-23T12:00:00")
        self.assertEqual(self.call("Today"), (["勤労感謝の日"],))
        self.time.advance(24 * 3_600_000)
        self.assertEqual(self.call("Today"), ([],))

    def test_the_window_comes_forward_with_its_menu(self):
        self.start()
        self.assertEqual(self.call("ComeForward", "(b)", False), ())
        self.assertEqual(self.app.menus, [])
        self.assertEqual(self.call("ComeForward", "(b)", True), ())
        self.app.wait(role="popup menu", name="メニュー", showing=True)

    def test_a_second_program_waits_for_the_name(self):
        self.start()
        first = dbus_calls.call(self.bus, dbus_calls.BUS, "GetNameOwner", "(s)", NAME)
        folder = self.session.directory / "second"
        folder.mkdir()
        beside = {"SetUp": {"Win_Left": "6000", "Win_Top": "6000"}, "Notice": {"NoCdDrive": "False"}}
        write_settings(self.session, ON | beside)
        second = start_tickwell(self.session, folder=folder / "folder")
        wait_for(lambda: len(dbus_calls.call(self.bus, dbus_calls.BUS, "ListQueuedOwners", "(s)", NAME)[0]) == 2,
                 "the second program in the queue")
        self.assertEqual(dbus_calls.call(self.bus, dbus_calls.BUS, "GetNameOwner", "(s)", NAME), first)
        self.quit()
        wait_for(lambda: dbus_calls.process_of(self.bus, NAME) == second.program.pid, "the second program's commands")
        self.assertEqual(self.run_command("--show", "memory"), (0, "", ""))
        wait_lines(second, upper="メモリー使用率")


class Shell(RemoteCase):
    def test_the_commands(self):
        self.start()
        self.assertEqual(self.run_command("--show", "5"), (0, "", ""))
        wait_lines(self.app, upper="メモリー使用率")
        self.assertEqual(self.run_command("--stopwatch", "start"), (0, "0\n", ""))
        self.time.advance(2500)
        self.assertEqual(self.run_command("--stopwatch", "lap"), (0, "2500\n", ""))
        self.assertEqual(self.run_command("--stopwatch", "read"), (0, "2500\n", ""))
        self.assertEqual(self.run_command("--stopwatch", "start"),
                         (1, "", "tickwell: The stopwatch is running; stop, lap and read are possible.\n"))
        self.assertEqual(self.run_command("--stopwatch", "start", language="ja_JP.UTF-8"),
                         (1, "", "tickwell: ストップウォッチは動いています。stop、lap、read ができます。\n"))
        self.assertEqual(self.run_command("--stopwatch", "stop"), (0, "2500\n", ""))
        self.assertEqual(self.run_command("--stopwatch", "reset"), (0, "0\n", ""))
        self.assertEqual(self.run_command("--timer", "5m30s", "茹で卵"), (0, "1\n", ""))
        wait_lines(self.app, upper="茹で卵")
        self.assertEqual(self.run_command("--timer", "5s")[:2], (1, ""))
        self.quit()
        self.assertEqual(self.stored("SetUp")["Function"], "0")
        self.assert_nobody()

    def test_mistakes_are_named_without_a_clock(self):
        for arguments, word in ((("--show", "7"), "cd (6)"), (("--stopwatch", "go"), "reset"),
                                (("--timer", "5"), "5m30s"), (("--timer", "24h"), "23 hours"),
                                (("--timer", "5s", "x" * 201), "200"), (("--show", "cd", "--menu"), "--menu"),
                                (("--show", "cd", "now"), "now"), (("--show",), "show")):
            with self.subTest(arguments):
                printed = self.run_command(*arguments)
                self.assertEqual(printed[:2], (2, ""))
                self.assertRegex(printed.errors, r"\Atickwell: [^\n]+\n\Z")
                self.assertIn(word, printed.errors)

    def test_a_clock_that_is_stopped(self):
        self.start()
        os.kill(self.app.program.pid, signal.SIGSTOP)
        try:
            self.assertEqual(self.run_command("--stopwatch", "read"), (1, "", "tickwell: The clock does not answer.\n"))
        finally:
            os.kill(self.app.program.pid, signal.SIGCONT)

    def test_a_bus_that_is_stopped(self):
        daemon = self.session.services["dbus-daemon"]
        os.kill(daemon.pid, signal.SIGSTOP)
        try:
            begun = time.monotonic()
            self.assertEqual(self.run_command("--stopwatch", "read"), (1, "", "tickwell: The clock does not answer.\n"))
            self.assertLess(time.monotonic() - begun, BUS_PATIENCE)
        finally:
            os.kill(daemon.pid, signal.SIGCONT)

    def test_output_that_cannot_be_written_is_an_error(self):
        self.start()
        with open("/dev/full", "wb") as full:
            run = subprocess.run([program_path(), "--stopwatch", "read"], env=self.session.environment, stdout=full,
                                 stderr=subprocess.PIPE, timeout=30, check=False)
        self.assertEqual(run.returncode, 1)
        self.assertIn(b"No space left on device", run.stderr)

    def test_the_menu_goes_by_its_own_way(self):
        self.start(settings=None)
        again = self.session.spawn([*self.app.program.command[:3], "--menu"])
        self.assertEqual(again.wait_end(), 0)
        self.app.wait(role="popup menu", name="メニュー", showing=True)


class Floods(RemoteCase):
    def setUp(self):
        super().setUp()
        self.start()
        self.window_id = wait_on_screen(self.session, self.app)

    def flood(self, calls):
        """Sends all calls without waiting, then waits for their replies; returns the number of each error."""
        answers = []

        def answered(connection, result):
            try:
                connection.call_finish(result)
                answers.append("")
            except GLib.Error as error:
                answers.append((Gio.dbus_error_get_remote_error(error) or str(error)).rpartition(".")[2])
        begun = time.monotonic()
        for method, signature, arguments in calls:
            self.bus.call(NAME, PATH, NAME, method, GLib.Variant(signature, arguments), None,
                          Gio.DBusCallFlags.NONE, 30_000, None, answered)
        while len(answers) < len(calls) and time.monotonic() < begun + 60 * SLOWNESS:
            GLib.MainContext.default().iteration(True)
        self.assertEqual(len(answers), len(calls))
        print(f"{len(calls)} calls in {time.monotonic() - begun:.2f} s", flush=True)
        return {error: answers.count(error) for error in set(answers)}

    def test_a_thousand_calls_a_second(self):
        stored = settings_path(self.session).read_bytes()
        kinds = [("Show", "(s)", ("memory",)), ("Show", "(s)", ("clock",)), ("Stopwatch", "(s)", ("read",)),
                 ("Today", "()", ()), ("ComeForward", "(b)", (False,)), ("Show", "(s)", ("usage",))]
        with keeps_answering(self.session, self.app.program, self.window_id, computing=True):
            for _ in range(3):
                errors = self.flood([kinds[i % len(kinds)] for i in range(CALLS)])
                self.assertEqual(set(errors), {"", "LimitsExceeded"})
                self.assertGreaterEqual(errors[""], 100)
                self.assertEqual(sum(errors.values()), CALLS)
                time.sleep(1.2)
        self.assertEqual(self.run_command("--show", "memory"), (0, "", ""))
        wait_lines(self.app, upper="メモリー使用率")
        self.assertEqual(settings_path(self.session).read_bytes(), stored)
        self.app.program.check_running()

    def test_nonsense(self):
        """Nonsense is answered with an error that states what is allowed, and changes nothing."""
        lines = wait_lines(self.app)
        before = anonymous_memory(self.app.program.pid)
        invalid = "org.freedesktop.DBus.Error.InvalidArgs"
        for method, signature, arguments, word in (
                ("Show", "()", (), "Show(s function)"), ("Show", "(i)", (3,), "Show(s function)"),
                ("Show", "(as)", (["clock"],), "Show(s function)"),
                ("Show", "(v)", (GLib.Variant("s", "clock"),), "Show(s function)"),
                ("Show", "(s)", ("",), "clock (0)"), ("Show", "(s)", ("-1",), "clock (0)"),
                ("Show", "(s)", ("x" * 3_000_000,), "clock (0)"), ("Stopwatch", "(s)", ("go",), "start, stop"),
                ("Timer", "(s)", ("5m",), "Timer(i milliseconds, s name)"),
                ("Timer", "(is)", (0, ""), "1000 to 86399000"),
                ("Timer", "(is)", (-2**31, ""), "86399000"), ("Timer", "(is)", (2**31 - 1, ""), "86399000"),
                ("Timer", "(xs)", (5000, ""), "Timer(i"), ("Timer", "(is)", (5000, "x" * 201), "200 characters"),
                ("Timer", "(is)", (5000, "a\x1b[2J"), "control characters"),
                ("Timer", "(is)", (5000, "卵" * 10**6), "200 characters"),
                ("Today", "(s)", ("now",), "Today()"), ("ComeForward", "(s)", ("yes",), "ComeForward(b menu)")):
            with self.subTest(method=method, signature=signature):
                error, text = self.refused(method, signature, *arguments)
                self.assertEqual(error, invalid)
                self.assertIn(word, text)
                self.assertLess(len(text), 200)
        self.assertEqual(self.refused("Quit")[0], "org.freedesktop.DBus.Error.UnknownMethod")
        for path, interface in (("/", NAME), (PATH + "/x", NAME), (PATH, "a.b")):
            with self.assertRaises(GLib.Error):
                dbus_calls.call(self.bus, (NAME, path, interface), "Today")
        self.assertEqual(wait_lines(self.app), lines)
        self.assertLess(anonymous_memory(self.app.program.pid), before + MOST_MEMORY)
        self.assertEqual(self.call("Stopwatch", "(s)", "read"), (0,))

    def test_a_bus_that_is_stopped_or_lost(self):
        daemon = self.session.services["dbus-daemon"]
        with keeps_answering(self.session, self.app.program, self.window_id):
            os.kill(daemon.pid, signal.SIGSTOP)
            time.sleep(2)
            os.kill(daemon.pid, signal.SIGCONT)
        self.assertEqual(self.call("Stopwatch", "(s)", "read"), (0,))
        with keeps_answering(self.session, self.app.program, self.window_id):
            daemon.kill()
            time.sleep(2)
        self.app.program.check_running()


if __name__ == "__main__":
    unittest.main()
