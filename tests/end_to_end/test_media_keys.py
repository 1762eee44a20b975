# SPDX-License-Identifier: GPL-3.0-or-later
"""Media keys: the CD player as playerctl, gdbus and other programs find and control it on the session bus."""

import os
import signal
import subprocess
import time
import unittest

from gi.repository import Gio, GLib

from driver import dbus_calls
from driver.answering import keeps_answering
from driver.cd_player import NEXT, PAUSE, TITLE, CdCase
from driver.disc_sound import SECOND
from driver.footprint import anonymous_memory
from driver.settings_case import button, check
from driver.tickwell import start_tickwell, wait_lines, wait_on_screen
from driver.tool_windows import choose
from driver.waiting import SLOWNESS, wait_for

NAME = "org.mpris.MediaPlayer2.tickwell"
PATH = "/org/mpris/MediaPlayer2"
APPLICATION, PLAYER = "org.mpris.MediaPlayer2", "org.mpris.MediaPlayer2.Player"
PROPERTIES = "org.freedesktop.DBus.Properties"
ON = {"Remote": {"MediaKeys": "True"}}
BOX = "メディアキー（再生・停止など）でCDを操作する"
MICROSECOND = 1_000_000
CALLS = 1000
UNANSWERED = 2.0  # s
MOST_MEMORY = 20 * 2**20  # bytes that a flood of calls may leave behind
LOOK = 15.0 * SLOWNESS  # s; every ten seconds the program checks whether the disc was removed
LENGTHS = (321, 227, 383)  # sectors of the tracks; the pause before the second belongs to the first


class PlayerCase(CdCase):
    def setUp(self):
        super().setUp()
        self.bus = dbus_calls.connect(self.session.environment["DBUS_SESSION_BUS_ADDRESS"])
        self.addCleanup(dbus_calls.close, self.bus)
        self.disc = self.discs["three_tones"]

    def start(self, source=None, settings=ON, **options):
        super().start(source or self.folder / "three_tones.cue", settings=settings, **options)
        if settings is ON:
            self.wait_found()

    def names(self):
        return {name for name in dbus_calls.call(self.bus, dbus_calls.BUS, "ListNames")[0] if not name.startswith(":")}

    def wait_found(self, found=True, **options):
        wait_for(lambda: (NAME in self.names()) == found, f"the player on the bus: {found}", **options)

    def call(self, method, signature="()", *arguments, interface=PLAYER):
        return dbus_calls.call(self.bus, (NAME, PATH, interface), method, signature, *arguments)

    def refused(self, method, signature="()", *arguments, interface=PLAYER):
        with self.assertRaises(GLib.Error) as caught:
            self.call(method, signature, *arguments, interface=interface)
        return Gio.dbus_error_get_remote_error(caught.exception).rpartition(".")[2]

    def get(self, name, interface=PLAYER):
        return self.call("Get", "(ss)", interface, name, interface=PROPERTIES)[0]

    def playerctl(self, *arguments):
        """Runs playerctl, which controls this player because it is the only one; returns exit code, output and errors."""
        run = subprocess.run(["playerctl", *arguments], env=self.session.environment, timeout=30, capture_output=True,
                             check=False)
        return run.returncode, run.stdout.decode("utf-8").strip(), run.stderr.decode("utf-8").strip()

    def do(self, *arguments):
        self.assertEqual(self.playerctl(*arguments), (0, "", ""))

    def wait_status(self, status):
        wait_for(lambda: self.playerctl("status") == (0, status, ""), f"the status {status}")

    def wait_track(self, number):
        wait_for(lambda: self.get("Metadata").get("xesam:trackNumber", 0) == number, f"track {number}")


class Finding(PlayerCase):
    def test_by_default_nothing_is_on_the_bus(self):
        self.start(settings=None)
        self.wait_total(3, "0:12")
        self.play()
        self.wait_piece(self.disc, 1, 1)
        self.assertNotIn(NAME, self.names())
        code, output, errors = self.playerctl("play-pause")
        self.assertEqual((code, output, errors), (1, "", "No players found"))
        for name in dbus_calls.call(self.bus, dbus_calls.BUS, "ListNames")[0]:
            if name.startswith(":") and dbus_calls.process_of(self.bus, name) == self.app.program.pid:
                with self.assertRaises(GLib.Error):  # some client libraries do not even answer
                    dbus_calls.call(self.bus, (name, PATH, PLAYER), "Stop", timeout=UNANSWERED)
        self.wait_caption("再生")
        self.quit()

    def test_the_settings_switch_it_on_and_off(self):
        self.start(settings=None)
        self.wait_total(3, "0:12")
        self.settings_with(lambda click: click(check(BOX), button("適用")))
        self.wait_found()
        self.wait_status("Stopped")
        self.settings_with(lambda click: click(check(BOX), button("OK")))
        self.wait_found(False)
        self.settings_with(lambda click: click(check(BOX), button("OK")))
        self.wait_found()
        self.quit()
        self.wait_found(False)

    def settings_with(self, use):
        """Opens page 連携 of the settings dialog, which may already be open, and passes `use` a function that clicks
        controls."""
        if not self.app.find(role="dialog", name="環境設定", showing=True):
            choose(self.session, self.app, "環境設定")
        dialog = self.app.wait(role="dialog", name="環境設定", showing=True)
        self.session.hand.click(dialog.wait(role="page tab", name="連携"))

        def click(*targets):
            for target in targets:
                self.session.hand.click(dialog.wait(**target))
        use(click)

    def test_only_once_the_player_was_opened(self):
        self.app = start_tickwell(self.session, settings={"SetUp": {"Function": "0"}} | ON,
                                  arguments=("--disc", self.folder / "three_tones.cue"),
                                  environment=self.server.environment)
        wait_lines(self.app, upper="Tickwell Ver.2")
        wait_on_screen(self.session, self.app)
        wait_lines(self.app, upper=lambda text: not text.startswith("Tickwell"))
        time.sleep(2)
        self.assertNotIn(NAME, self.names())
        choose(self.session, self.app, "CDﾌﾟﾚｰﾔｰ")
        self.wait_found()

    def test_without_its_disc_it_is_gone(self):
        cue = self.folder / "three_tones.cue"
        self.start(cue)
        cue.rename(self.folder / "out.cue")
        self.wait_found(False, timeout=LOOK)
        (self.folder / "out.cue").rename(cue)
        self.wait_found(timeout=LOOK)
        self.do("play")
        self.wait_piece(self.disc, 1, 1)

    def test_the_titles_of_the_disc(self):
        self.start(self.folder / "titles_shift_jis.cue", settings=ON | {"Cd": {"ShowsTitles": "True"}})
        self.wait_found()
        self.do("next")
        wait_for(lambda: self.playerctl("metadata", "xesam:title") == (0, "月の光", ""), "the title of the track")
        self.assertEqual(self.playerctl("metadata", "xesam:album"), (0, "夜の音楽", ""))

    def test_introspection_by_gdbus(self):
        self.start()
        command = ["gdbus", "introspect", "--session", "--dest", NAME, "--object-path", PATH]
        shown = subprocess.run(command, env=self.session.environment, timeout=30, capture_output=True, check=True,
                               text=True).stdout
        for part in (f"interface {APPLICATION} ", f"interface {PLAYER} ", "PlayPause();", "Seek(in  x Offset);",
                     "SetPosition(in  o TrackId,", "Seeked(x Position);", "readonly s PlaybackStatus = 'Stopped';",
                     "readonly x Position = 0;", "readonly b CanQuit = false;", "readonly s DesktopEntry = 'tickwell';"):
            self.assertEqual(shown.count(part), 1, f"{part} in {shown}")


class Operating(PlayerCase):
    def setUp(self):
        super().setUp()
        self.start()
        self.wait_total(3, "0:12")
        self.changes, self.jumps = [], []
        for interface, signal_name, hear in ((PROPERTIES, "PropertiesChanged", self.hear_change),
                                             (PLAYER, "Seeked", self.hear_jump)):
            number = self.bus.signal_subscribe(NAME, interface, signal_name, PATH, None, Gio.DBusSignalFlags.NONE, hear)
            self.addCleanup(self.bus.signal_unsubscribe, number)

    def hear_change(self, _bus, _sender, _path, _interface, _signal, parameters):
        interface, changed, invalidated = parameters.unpack()
        self.assertEqual((interface, invalidated), (PLAYER, []))
        self.changes.append(changed)

    def hear_jump(self, _bus, _sender, _path, _interface, _signal, parameters):
        self.jumps += parameters.unpack()

    def wait_news(self, check_news, what):
        def has_come():
            while GLib.MainContext.default().iteration(False):
                pass
            return check_news()
        wait_for(has_come, what)

    def wait_changes(self, expected):
        """Waits until exactly these changes were announced, in this order; then discards them."""
        self.wait_news(lambda: len(self.changes) >= len(expected), f"the changes {expected}, not {self.changes}")
        self.assertEqual(self.changes, expected)
        self.changes.clear()

    def track(self, number):
        disc = self.get("Metadata")["mpris:trackid"].rpartition("/")[0]
        return {"mpris:trackid": f"{disc}/track{number}", "mpris:length": LENGTHS[number - 1] * MICROSECOND // 75,
                "xesam:title": f"トラック {number}", "xesam:trackNumber": number}

    def test_every_command_of_playerctl(self):
        self.assertEqual(self.playerctl("--list-all"), (0, "tickwell", ""))
        self.wait_status("Stopped")
        self.do("next")
        self.do("next")
        self.wait_lines(lower="[ 2 ]    0:03")
        self.assertEqual(self.playerctl("metadata", "xesam:title"), (0, "トラック 2", ""))
        self.assertEqual(self.playerctl("metadata", "mpris:length"), (0, str(227 * MICROSECOND // 75), ""))
        self.do("previous")
        self.wait_lines(lower="[ 1 ]    0:04")
        self.do("play")
        self.wait_status("Playing")
        self.wait_caption("再生")
        self.assertEqual(self.wait_piece(self.disc, 1, 0.5)[0].start, self.disc.track(1))
        self.do("next")
        self.wait_lines(lower=lambda text: text.startswith("[ 2 ]    0:0"))
        self.assertEqual(self.wait_piece(self.disc, 2, 0.3)[1].start, self.disc.track(2))
        self.do("pause")
        self.wait_status("Paused")
        self.wait_caption("一時停止")
        for word in ("next", "previous", "pause"):
            self.playerctl(word)  # playerctl reports that the player does not support it
        self.assertEqual(self.refused("Stop"), "NotSupported")
        self.wait_status("Paused")
        self.do("play-pause")
        self.wait_status("Playing")
        self.do("stop")
        self.wait_status("Stopped")
        self.wait_total(3, "0:12")
        self.do("play-pause")
        self.wait_status("Playing")
        self.do("play-pause")
        self.wait_status("Paused")
        self.quit()

    def test_seeking(self):
        self.do("play")
        self.wait_piece(self.disc, 1, 0.3)
        self.do("position", "2")
        first, second = self.wait_piece(self.disc, 2, 0.3)
        self.assertEqual(first.start, self.disc.track(1))
        self.assertAlmostEqual(second.start / SECOND, 2, delta=0.05)
        self.do("position", "1-")
        third = self.wait_piece(self.disc, 3, 0.3)[2]
        self.assertAlmostEqual((third.start - self.heard(self.disc)[1].end) / SECOND, -1, delta=0.3)
        self.wait_news(lambda: len(self.jumps) == 2, "two jumps")
        self.assertEqual(self.jumps[0], 2 * MICROSECOND)
        old = self.track(1)["mpris:trackid"]
        self.assertEqual(self.call("Seek", "(x)", 60 * MICROSECOND), ())  # beyond the end of the track
        self.wait_track(2)
        for position in (-1, LENGTHS[1] * MICROSECOND // 75 + 1, 2**63 - 1, -2**63):
            self.assertEqual(self.call("SetPosition", "(ox)", self.track(2)["mpris:trackid"], position), ())
        self.assertEqual(self.call("SetPosition", "(ox)", old, MICROSECOND), ())  # no longer the current track
        self.assertEqual(self.call("SetPosition", "(ox)", self.track(2)["mpris:trackid"], 2 * MICROSECOND), ())
        self.wait_news(lambda: self.jumps and self.jumps[-1] == 2 * MICROSECOND, "the jump to a position")
        self.assertEqual(self.call("Seek", "(x)", -2**63), ())
        self.wait_news(lambda: self.jumps[-1] == 0, "the jump to the start of the track")
        self.wait_track(2)

    def test_what_is_told(self):
        self.press(NEXT)
        self.wait_changes([{"Metadata": self.track(1)}])
        self.do("play")
        self.wait_changes([{"PlaybackStatus": "Playing", "CanSeek": True}])
        wait_for(lambda: self.get("Position") > MICROSECOND, "the position of the second second")
        self.wait_changes([{"Metadata": self.track(2)}])  # the track changes by itself
        self.press(PAUSE)
        self.wait_changes([{"PlaybackStatus": "Paused", "CanGoNext": False, "CanGoPrevious": False, "CanSeek": False}])
        paused = self.get("Position")
        self.do("play")
        self.wait_changes([{"PlaybackStatus": "Playing", "CanGoNext": True, "CanGoPrevious": True, "CanSeek": True}])
        self.assertLess(self.get("Position") - paused, MICROSECOND)
        self.do("stop")
        self.wait_changes([{"PlaybackStatus": "Stopped", "Metadata": {}, "CanSeek": False}])
        self.assertEqual(self.jumps, [])

    def test_the_properties(self):
        self.assertEqual(self.call("GetAll", "(s)", APPLICATION, interface=PROPERTIES)[0],
                         {"CanQuit": False, "CanRaise": True, "HasTrackList": False, "Identity": "Tickwell",
                          "DesktopEntry": "tickwell", "SupportedUriSchemes": [], "SupportedMimeTypes": []})
        self.assertEqual(self.call("GetAll", "(s)", PLAYER, interface=PROPERTIES)[0],
                         {"PlaybackStatus": "Stopped", "Rate": 1.0, "MinimumRate": 1.0, "MaximumRate": 1.0,
                          "Volume": 1.0, "Position": 0, "Metadata": {}, "CanGoNext": True, "CanGoPrevious": True,
                          "CanPlay": True, "CanPause": True, "CanSeek": False, "CanControl": True})
        for name, value, error in (("Rate", GLib.Variant("d", 2.0), "NotSupported"),
                                   ("Volume", GLib.Variant("d", 0.5), "NotSupported"),
                                   ("Volume", GLib.Variant("a(si)", [("x", 1)]), "InvalidArgs"),
                                   ("Position", GLib.Variant("x", 5), "PropertyReadOnly"),
                                   ("Nothing", GLib.Variant("s", ""), "UnknownProperty")):
            self.assertEqual(self.refused("Set", "(ssv)", PLAYER, name, value, interface=PROPERTIES), error)
        self.call("Set", "(ssv)", PLAYER, "Volume", GLib.Variant("d", 1.0), interface=PROPERTIES)

    def test_nonsense_is_refused(self):
        for method, signature, arguments, error in (
                ("Eject", "()", (), "UnknownMethod"), ("Play", "(s)", ("x" * 1_000_000,), "InvalidArgs"),
                ("Seek", "(i)", (5,), "InvalidArgs"), ("Seek", "(t)", (2**64 - 1,), "InvalidArgs"),
                ("SetPosition", "(sx)", ("/", 1), "InvalidArgs"), ("Seek", "(a{sv})", ({},), "InvalidArgs"),
                ("OpenUri", "(s)", ("file:///etc/passwd",), "NotSupported"), ("Quit", "()", (), "UnknownMethod")):
            with self.subTest(method=method, signature=signature):
                self.assertEqual(self.refused(method, signature, *arguments), error)
        self.assertEqual(self.refused("Quit", interface=APPLICATION), "NotSupported")
        self.assertEqual(self.refused("Play", interface="a.b"), "UnknownInterface")
        self.assertEqual(self.refused("Get", "(ss)", PLAYER, "Shuffle", interface=PROPERTIES), "UnknownProperty")
        self.wait_status("Stopped")

    def test_the_window_is_raised(self):
        self.session.hand.key("Escape")
        self.app.wait_gone(role="dialog", name=TITLE, showing=True)
        self.assertEqual(self.call("Raise", interface=APPLICATION), ())
        self.app.wait(role="dialog", name=TITLE, showing=True)

    def test_a_thousand_calls_a_second(self):
        xid = wait_on_screen(self.session, self.app)
        words = ("PlayPause", "Next", "Previous", "Seek", "Play", "Pause")
        self.flood(words)  # Qt's buffers grow once
        before = anonymous_memory(self.app.program.pid)
        with keeps_answering(self.session, self.app.program, xid, computing=True):
            for _ in range(3):
                time.sleep(1.2)
                errors = self.flood(words)
                self.assertEqual(set(errors), {"", "LimitsExceeded"})
                self.assertGreaterEqual(errors[""], 100)
        self.assertLess(anonymous_memory(self.app.program.pid) - before, MOST_MEMORY)
        time.sleep(1.2)
        self.call("Play")
        self.wait_status("Playing")
        self.assertIsNone(self.app.find(role="alert message", showing=True))
        self.quit()

    def flood(self, words):
        """Sends the calls without waiting, then waits for their replies; returns the number of each error."""
        answers = []

        def answered(connection, result):
            try:
                connection.call_finish(result)
                answers.append("")
            except GLib.Error as error:
                answers.append((Gio.dbus_error_get_remote_error(error) or str(error)).rpartition(".")[2])
        begun = time.monotonic()
        for number in range(CALLS):
            word = words[number % len(words)]
            arguments = GLib.Variant("(x)", (MICROSECOND,)) if word == "Seek" else None
            self.bus.call(NAME, PATH, PLAYER, word, arguments, None, Gio.DBusCallFlags.NONE, 30_000, None, answered)
        while len(answers) < CALLS and time.monotonic() < begun + 60 * SLOWNESS:
            GLib.MainContext.default().iteration(True)
        self.assertEqual(len(answers), CALLS)
        print(f"{CALLS} calls in {time.monotonic() - begun:.2f} s", flush=True)
        return {error: answers.count(error) for error in set(answers)}

    def test_a_bus_that_stops_and_ends(self):
        self.do("play")
        xid = wait_on_screen(self.session, self.app)
        daemon = self.session.services["dbus-daemon"]
        with keeps_answering(self.session, self.app.program, xid):
            os.kill(daemon.pid, signal.SIGSTOP)
            time.sleep(2)
            self.session.windows.wait(name="Tickwell", pid=self.app.program.pid)
            os.kill(daemon.pid, signal.SIGCONT)
            self.wait_track(2)
            os.kill(daemon.pid, signal.SIGKILL)
            pieces = self.heard(self.disc)
            self.wait_piece(self.disc, len(pieces), pieces[-1].seconds + 2)


if __name__ == "__main__":
    unittest.main()
