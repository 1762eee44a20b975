# SPDX-License-Identifier: GPL-3.0-or-later
"""Missing, lost or refused parts of a desktop: the program reports each once and clearly, or silently works without it.
It never hangs, and what it reported as stored is stored."""

import os
import resource
import shutil
import sqlite3
import unittest

from driver.boxes import RUN_TIME_ERROR, START_ERROR, close_box, wait_box
from driver.calendar_hand import CalendarHand, stored
from driver.case import TickwellCase
from driver.sound_server import SoundServer
from driver.tickwell import (SILENT, make_folder, program_path, read_settings, settings_path, start_tickwell,
                             tickwell_command, wait_lines, wait_on_screen, write_settings)
from driver.tool_windows import choose
from driver.virtual_time import VirtualTime
from driver.waiting import TimedOut, wait_for

START_UP_DELAY = 11000  # ms
HALF_HOUR = 30 * 60_000
HANGS = 15.0  # s; anything longer counts as a hang
WALL = "1998-10-15T11:40:00"
DAY = "1998年10月6日"
# Root bypasses permissions; without these capabilities it does not.
REFUSED = ["setpriv", "--bounding-set", "-dac_override,-dac_read_search"] if os.geteuid() == 0 else []


class FaultCase(TickwellCase):
    def setUp(self):
        super().setUp()
        self.folder = make_folder(self.session.directory / "days")

    def start(self, wall=WALL, prefix=(), **options):
        """Starts with virtual time and the test's folder. `prefix`: a command that starts the program."""
        self.time = VirtualTime(wall)
        self.addCleanup(self.time.close)
        if prefix:
            write_settings(self.session, SILENT)
            command = tickwell_command(self.session, self.folder, self.time)
            program = self.session.spawn([*prefix, *command], pass_fds=self.time.pass_fds)
            self.time.started()
            self.app = self.session.wait_app(program)
        else:
            self.app = start_tickwell(self.session, folder=self.folder, virtual_time=self.time, **options)

    def start_clock(self, **options):
        self.start(**options)
        self.xid = wait_on_screen(self.session, self.app)
        self.time.advance(START_UP_DELAY)
        wait_lines(self.app, lower="午前11時40分11秒")

    def close(self):
        self.session.windows.close_window(self.xid)
        self.assertEqual(self.app.program.wait_end(), 0)

    def install(self):
        """Installs the program like a package; its user has not started it yet. Returns its path."""
        prefix = self.session.directory / "usr"
        (prefix / "bin").mkdir(parents=True)
        for name in ("tickwell", "tickwell-cd", "tickwell-ical", "tickwell-print", "tickwell-sound"):
            shutil.copy(program_path().parent / name, prefix / "bin")
        make_folder(prefix / "share/tickwell")
        write_settings(self.session, SILENT)
        return prefix / "bin/tickwell"

    def spawn_unseen(self, environment):
        """Starts the program without an accessibility bus; waits until its window is shown and steady."""
        write_settings(self.session, SILENT)
        time = VirtualTime(WALL)
        self.addCleanup(time.close)
        program = self.session.spawn(tickwell_command(self.session, self.folder, time), environment=environment,
                                     pass_fds=time.pass_fds)
        time.started()
        xid = self.session.windows.wait(name="Tickwell", pid=program.pid)
        time.advance(START_UP_DELAY + 3000)
        return program, xid, time


class Missing(FaultCase):
    def picture(self, xid):
        return self.session.grab(self.session.windows.geometry(xid)).tobytes()

    def test_without_message_buses_it_looks_as_ever(self):
        self.start()
        self.xid = wait_on_screen(self.session, self.app)
        self.time.advance(START_UP_DELAY + 3000)
        wait_lines(self.app, lower="午前11時40分14秒")
        expected = self.picture(self.xid)
        self.close()
        nowhere = f"unix:path={self.session.directory}/nowhere"
        program, xid, time = self.spawn_unseen({"DBUS_SESSION_BUS_ADDRESS": nowhere,
                                                "DBUS_SYSTEM_BUS_ADDRESS": nowhere})
        wait_for(lambda: self.picture(xid) == expected, "the same picture")
        time.advance(HALF_HOUR)
        self.session.hand.click((20, 20))
        menu = self.session.windows.wait(pid=program.pid)
        self.session.hand.key("Escape")
        self.assertIsNotNone(menu)
        self.session.windows.close_window(xid)
        self.assertEqual(program.wait_end(), 0)
        self.assertEqual(program.output(), "")

    def test_the_bus_ends_while_it_runs(self):
        self.start_clock()
        self.session.services["dbus-daemon"].kill()
        self.time.advance(HALF_HOUR)
        before = self.picture(self.xid)
        self.time.advance(60_000)
        wait_for(lambda: self.picture(self.xid) != before, "another minute on the screen")
        self.close()
        self.assertIn("Function", read_settings(self.session)["SetUp"])

    def test_without_a_font_it_runs_and_ends(self):
        fonts = self.session.directory / "fonts"
        fonts.mkdir()
        configuration = fonts / "fonts.conf"
        configuration.write_text(f"<fontconfig><dir>{fonts}</dir><cachedir>{fonts}</cachedir></fontconfig>")
        self.start(environment={"FONTCONFIG_FILE": str(configuration)})
        self.xid = wait_on_screen(self.session, self.app)
        self.time.advance(START_UP_DELAY)
        wait_lines(self.app, lower="午前11時40分11秒")
        CalendarHand(self.session, self.app).close()
        self.close()
        told = [line for line in self.app.program.output().splitlines() if "Point size <= 0" not in line]
        self.assertEqual(told, [])  # Qt's message is the only output

    def test_without_its_help_file_it_says_so_until_it_is_back(self):
        self.start_clock()
        text = (self.folder / "Help.hlp").read_bytes()
        (self.folder / "Help.hlp").unlink()
        for _ in range(2):
            choose(self.session, self.app, "ﾍﾙﾌﾟ")
            close_box(self.app, RUN_TIME_ERROR + "Help.hlp を読み込めません。")
        (self.folder / "Help.hlp").write_bytes(b"<table><tr><td>" * 60)  # Qt would take extremely long to lay it out
        choose(self.session, self.app, "ﾍﾙﾌﾟ")
        close_box(self.app, RUN_TIME_ERROR + "Help.hlp は構造が複雑すぎるため、表示できません。\n元の Help.hlp に")
        (self.folder / "Help.hlp").write_bytes(text)
        choose(self.session, self.app, "ﾍﾙﾌﾟ")
        self.app.wait(name="Tickwell ヘルプ", showing=True)

    def test_its_folder_is_removed_while_it_runs(self):
        self.start_clock(settings={"SetUp": {"Clock_Int": "0"}})
        calendar = CalendarHand(self.session, self.app)
        shutil.rmtree(self.folder)
        calendar.mark(DAY)
        close_box(self.app, RUN_TIME_ERROR)  # not stored, and reported as such
        calendar.open_list()
        editor = calendar.add("Feast")
        close_box(self.app, "無効なデータが含まれているか、予期しないエラーが発生しました。")
        self.assertTrue(editor.showing)
        self.session.hand.key("Escape")
        self.app.wait_gone(role="dialog", name="記念日の追加", showing=True)
        calendar.close()
        choose(self.session, self.app, "ﾍﾙﾌﾟ")
        close_box(self.app, RUN_TIME_ERROR + "Help.hlp を読み込めません。")
        self.time.advance(HALF_HOUR)  # includes a chime, without sound
        wait_lines(self.app, lower="午後0時10分11秒")
        self.close()

    def test_the_program_itself_is_removed_while_it_runs(self):
        installed = self.install()
        self.time = VirtualTime(WALL)
        self.addCleanup(self.time.close)
        command = [installed, *tickwell_command(self.session, self.folder, self.time)[1:]]
        program = self.session.spawn(command, pass_fds=self.time.pass_fds)
        self.time.started()
        self.app = self.session.wait_app(program)
        self.xid = wait_on_screen(self.session, self.app)
        shutil.rmtree(installed.parent.parent)
        self.time.advance(START_UP_DELAY)
        CalendarHand(self.session, self.app).mark(DAY)
        choose(self.session, self.app, "CDﾌﾟﾚｰﾔｰ")  # its helper is missing
        choose(self.session, self.app, "ﾃﾞｼﾞﾀﾙ時計")
        wait_lines(self.app, lower="午前11時40分11秒")
        self.close()
        self.assertEqual(stored(self.folder)[1], ["1998-10-06"])
        self.assertEqual(program.output(), "")

    def test_the_screen_ends(self):
        self.start_clock()
        calendar = CalendarHand(self.session, self.app)
        calendar.mark(DAY)
        self.session.services["Xvfb"].kill()
        self.assertEqual(self.app.program.wait_end(), 1)
        self.assertEqual(stored(self.folder)[1], ["1998-10-06"])


class Sound(FaultCase):
    def start_before_noon(self, environment):
        self.start_clock(settings={"SetUp": {"Clock_Int": "0"}}, environment=environment)
        self.time.advance(20 * 60_000 - START_UP_DELAY - 1000)

    def server(self):
        server = SoundServer(self.session)
        self.addCleanup(server.close)
        return server

    def turn(self, milliseconds):
        """Advances time; fails if the program hangs."""
        self.time.advance(milliseconds, timeout=HANGS)

    def test_without_a_server_the_hour_passes_in_silence(self):
        nowhere = f"unix:{self.session.directory}/nowhere"
        self.start_before_noon({"SDL_AUDIODRIVER": "", "PULSE_SERVER": nowhere})
        self.turn(HALF_HOUR)
        wait_lines(self.app, lower="午後0時29分59秒")
        self.turn(HALF_HOUR)
        self.assertEqual(self.app.program.output(), "")

    def test_a_server_that_dies_in_the_middle_is_silence_and_its_successor_strikes(self):
        server = self.server()
        self.start_before_noon(server.environment)
        self.turn(2000)
        wait_for(lambda: server.streams() == 1, "the chime")
        server.kill()
        self.turn(HALF_HOUR - 2000)
        wait_lines(self.app, lower="午後0時29分59秒")
        server.restart()
        self.turn(2000)
        wait_for(lambda: server.streams() == 1, "the chime on the new server")
        self.assertEqual(self.app.program.output(), "")

    def test_a_server_that_hangs_is_silence_until_it_goes_on(self):
        server = self.server()
        self.start_before_noon(server.environment)
        server.hang()
        for _ in range(3):
            self.turn(HALF_HOUR)
        wait_lines(self.app, lower="午後1時29分59秒")
        server.go_on()

        def strikes():
            self.turn(2000)  # only across the half hour: on a busy machine the sound ends before a longer advance does
            try:
                return wait_for(lambda: server.streams() == 1, "a chime", timeout=3)
            except TimedOut:
                self.turn(HALF_HOUR - 2000)
                return False
        wait_for(strikes, "the chime once the server answers")
        self.assertEqual(self.app.program.output(), "")

    def test_a_server_that_hangs_in_the_middle_blocks_nothing(self):
        server = self.server()
        self.start_before_noon(server.environment)
        self.turn(2000)
        wait_for(lambda: server.streams() == 1, "the chime")
        server.hang()
        for _ in range(3):
            self.turn(HALF_HOUR)
        wait_lines(self.app, lower="午後1時30分01秒")
        self.session.windows.close_window(self.xid)
        self.assertEqual(self.app.program.wait_end(timeout=HANGS), 0)


class ReadOnly(FaultCase):
    """Settings or a program folder that cannot be written."""

    def refuse(self, folder):
        folder.mkdir(parents=True, exist_ok=True)
        folder.chmod(0o555)
        self.addCleanup(folder.chmod, 0o755)

    def test_a_first_start_that_finds_no_room(self):
        self.refuse(self.session.home / ".local")
        program = self.session.spawn([*REFUSED, self.install()])
        app = self.session.wait_app(program)
        share = self.session.home / ".local/share"
        wait_box(app, f"{START_ERROR}{share}\nフォルダーを作成できません。").find(role="push button").press_and_go()
        self.assertEqual(program.wait_end(), 1)

    def test_a_folder_that_cannot_be_written(self):
        self.refuse(self.folder)
        self.start(prefix=REFUSED or ["env"])
        lock = self.folder / ".tickwell.lock"
        wait_box(self.app, f"{START_ERROR}プログラムのフォルダーに書き込めません。\n{lock}").find(
            role="push button").press_and_go()
        self.assertEqual(self.app.program.wait_end(), 1)

    def test_settings_that_cannot_be_written(self):
        self.start(prefix=REFUSED or ["env"])
        self.xid = wait_on_screen(self.session, self.app)
        before = settings_path(self.session).read_bytes()
        self.refuse(settings_path(self.session).parent)
        self.session.windows.close_window(self.xid)
        wait_box(self.app, f"{RUN_TIME_ERROR}設定ファイルを書き込めません。").find(role="push button").press_and_go()
        self.assertEqual(self.app.program.wait_end(), 0)
        self.assertEqual(settings_path(self.session).read_bytes(), before)


class Full(FaultCase):
    def limit(self, size):
        """From now on no file of the program can grow beyond `size` bytes, as on a full disk."""
        _, most = resource.prlimit(self.app.program.pid, resource.RLIMIT_FSIZE)
        resource.prlimit(self.app.program.pid, resource.RLIMIT_FSIZE, (size, most))

    def test_a_first_start_leaves_nothing_half_done(self):
        program = self.session.spawn(["prlimit", "--fsize=50000", self.install()])
        app = self.session.wait_app(program)
        wait_box(app, START_ERROR).find(role="push button").press_and_go()
        self.assertEqual(program.wait_end(), 1)
        self.assertEqual(os.listdir(self.session.home / ".local/share"), [])

    def test_marks_and_anniversaries_are_refused_and_stored_once_there_is_room(self):
        self.start_clock()
        calendar = CalendarHand(self.session, self.app)
        calendar.open_list()
        calendar.mark("1998年10月20日")
        self.limit(100)
        calendar.mark(DAY)
        close_box(self.app, RUN_TIME_ERROR)
        editor = calendar.add("Feast")
        close_box(self.app, "無効なデータが含まれているか、予期しないエラーが発生しました。")
        self.assertTrue(editor.showing)
        self.assertEqual(stored(self.folder), ([], ["1998-10-20"]))
        self.limit(resource.RLIM_INFINITY)
        editor.find(role="push button", name="追加>>").press_and_go()
        calendar.wait_added()
        calendar.mark("1998年10月7日")
        self.assertEqual(stored(self.folder), (["Feast"], ["1998-10-06", "1998-10-07", "1998-10-20"]))


class Locked(FaultCase):
    """Another program has locked the database."""

    def lock(self):
        other = sqlite3.connect(self.folder / "DayDate.mdb", isolation_level=None)
        self.addCleanup(other.close)
        other.execute("BEGIN EXCLUSIVE")
        return other

    def test_at_the_start_it_is_reported(self):
        self.lock()
        self.start()
        wait_box(self.app, f"{START_ERROR}DayDate.mdb\n").find(role="push button").press_and_go()
        self.assertEqual(self.app.program.wait_end(), 1)

    def test_while_it_runs_it_is_reported_and_nothing_is_lost(self):
        self.start_clock()
        calendar = CalendarHand(self.session, self.app)
        other = self.lock()
        calendar.mark(DAY)
        close_box(self.app, RUN_TIME_ERROR)
        other.execute("ROLLBACK")
        calendar.mark("1998年10月7日")
        self.assertEqual(stored(self.folder)[1], ["1998-10-06", "1998-10-07"])

    def test_at_midnight_it_is_reported_once_and_the_clock_goes_on(self):
        self.start(wall="1998-10-15T23:59:00")
        wait_on_screen(self.session, self.app)
        self.time.advance(START_UP_DELAY)
        other = self.lock()
        self.time.advance(HALF_HOUR)
        wait_lines(self.app, upper="平成10年10月16日(金曜日)", lower="午前0時29分11秒")
        close_box(self.app, RUN_TIME_ERROR)
        other.execute("ROLLBACK")


if __name__ == "__main__":
    unittest.main()
