# SPDX-License-Identifier: GPL-3.0-or-later
"""Quiet hours, the desktop's do-not-disturb mode, and the volume of time signal and timer."""

import array
import unittest

from driver.always_on import AlwaysOn
from driver.case import TickwellCase
from driver.do_not_disturb import NotificationService, Xfconf
from driver.sound_pipe import sound_of
from driver.sound_server import SoundServer, wave_samples, without_silence
from driver.tickwell import start_tickwell, wait_lines, wait_on_screen
from driver.tool_windows import button, choose, press, wait_window
from driver.virtual_time import VirtualTime
from driver.waiting import wait_for
from gi.repository import GLib

NIGHT = {"Hours": "True"}  # with the times that the settings propose
FOLLOWS = {"Desktop": "True"}
START_UP_DELAY = 11000  # ms
HALF_HOURS_OF_A_WEEK = 7 * 48
PLAYING = 60.0  # s; limit of a strike in real time


def quieter(samples, percent):
    """16-bit samples as bytes at this volume, rounded towards zero."""
    scaled = (abs(sample) * percent // 100 * (1 if sample > 0 else -1) for sample in array.array("h", samples))
    return array.array("h", scaled).tobytes()


class QuietHours(AlwaysOn):
    def is_night(self):
        return self.machine.now.hour >= 22 or self.machine.now.hour < 7

    def pass_half_hours_in_silence(self, is_quiet, count):
        """Checks that exactly the half hours that are not quiet are struck."""
        for _ in range(count):
            self.machine.to_half_hour()
            struck = 0 if is_quiet() else self.machine.strikes
            told = f"{struck} strikes at {self.machine.now}"
            self.assertTrue(self.sound.take(self.strike * struck, told), told)
            self.strikes += struck
            self.check_lines()

    def test_a_week_of_nights(self):
        self.start("2026-11-20T21:10:00", settings={"Quiet": NIGHT})
        self.pass_half_hours_in_silence(self.is_night, HALF_HOURS_OF_A_WEEK)
        # On each day the strikes of 7 to 21 o'clock: 57 up to noon, 45 after it, and 15 half hours.
        self.assertEqual(self.strikes, 7 * (sum(range(7, 13)) + sum(range(1, 10)) + 15))
        self.assertEqual(self.output(), [])

    def test_equal_times_are_the_whole_day(self):
        self.start("2026-11-20T21:10:00", settings={"Quiet": NIGHT | {"From": "600", "To": "600"}})
        self.pass_half_hours_in_silence(lambda: True, 48)
        self.assertEqual(self.strikes, 0)

    def test_hours_within_a_day(self):
        self.start("2026-11-20T08:40:00", settings={"Quiet": NIGHT | {"From": "600", "To": "750"}})
        self.pass_half_hours_in_silence(lambda: (10, 0) <= (self.machine.now.hour, self.machine.now.minute) < (12, 30),
                                        12)

    def test_the_time_signal_can_stay(self):
        self.start("2026-11-20T21:10:00", settings={"Quiet": NIGHT | {"Chime": "False"}})
        self.pass_half_hours(4)

    def test_switched_on_in_the_settings(self):
        self.start("2026-11-20T20:10:00")
        self.pass_half_hours(1)
        choose(self.session, self.app, "環境設定")
        settings = wait_window(self.app, "環境設定")
        settings.wait(role="page tab", name="お知らせ").press()
        box = settings.wait(role="check box", name="静かな時間を決める", showing=True)
        self.session.hand.click(box)
        wait_for(lambda: "checked" in box.states, "the box checked")
        press(settings, "OK")
        self.app.wait_gone(role="dialog", name="環境設定", showing=True)
        self.pass_half_hours_in_silence(self.is_night, 24)

    def test_half_the_volume_halves_each_sample(self):
        self.start("2026-11-20T10:40:00", settings={"Quiet": {"Volume": "50"}})
        samples = wave_samples(self.session.directory / "folder/TKW01.wav")
        self.strike = quieter(samples, 50).replace(b"\0", b"")
        self.assertNotEqual(self.strike, sound_of(self.session.directory / "folder/TKW01.wav"))
        self.pass_half_hours(4)


class Desktop(AlwaysOn):
    """The mode counts from the next strike on."""

    def strike_half_hour(self, sounds):
        self.machine.advance(1)  # what the program has received was handled then
        self.machine.to_half_hour()
        struck = self.machine.strikes if sounds else 0
        told = f"{struck} strikes at {self.machine.now}"
        self.assertTrue(self.sound.take(self.strike * struck, told), told)
        self.check_lines()

    def mock(self, service):
        self.addCleanup(service.close)
        return service

    def check(self, service):
        """Turns the mode on and off and on."""
        for on in (True, False, True):
            service.turn(on)
            self.strike_half_hour(sounds=not on)

    def test_it_is_unknown_without_a_service(self):
        self.start("2026-11-20T10:40:00", settings={"Quiet": FOLLOWS})
        self.strike_half_hour(sounds=True)

    def test_the_notification_service(self):
        service = self.mock(NotificationService(self.session, GLib.Variant("b", True)))
        self.start("2026-11-20T10:40:00", settings={"Quiet": FOLLOWS})
        service.wait_asked(1)
        self.strike_half_hour(sounds=False)
        service.turn(False)
        self.strike_half_hour(sounds=True)
        self.check(service)
        self.assertEqual(self.output(), [])

    def test_a_service_that_comes_and_goes(self):
        self.start("2026-11-20T10:40:00", settings={"Quiet": FOLLOWS})
        self.strike_half_hour(sounds=True)
        service = self.mock(NotificationService(self.session, GLib.Variant("b", True)))
        service.wait_asked(1)
        self.strike_half_hour(sounds=False)
        xfconf = self.mock(Xfconf(self.session))  # tells when the program asks again
        xfconf.wait_asked(0)
        before = xfconf.asked
        service.close()
        xfconf.wait_asked(before)
        self.strike_half_hour(sounds=True)

    def test_xfce(self):
        service = self.mock(Xfconf(self.session))
        self.start("2026-11-20T10:40:00", settings={"Quiet": FOLLOWS})
        service.wait_asked(0)
        self.strike_half_hour(sounds=True)  # the setting was never made
        self.check(service)

    def test_dunst(self):
        service = self.mock(NotificationService(self.session, GLib.Variant("b", False), "org.dunstproject.cmd0",
                                                "paused"))
        self.start("2026-11-20T10:40:00", settings={"Quiet": FOLLOWS})
        service.wait_asked(1)
        self.strike_half_hour(sounds=True)
        self.check(service)

    def test_what_is_no_flag_is_unknown(self):
        service = self.mock(NotificationService(self.session, GLib.Variant("s", "true")))
        self.start("2026-11-20T10:40:00", settings={"Quiet": FOLLOWS})
        service.wait_asked(1)
        self.strike_half_hour(sounds=True)

    def test_without_the_setting_nobody_is_asked(self):
        service = self.mock(NotificationService(self.session, GLib.Variant("b", True)))
        self.start("2026-11-20T10:40:00")
        self.strike_half_hour(sounds=True)
        self.assertEqual(service.asked, 0)


class Timer(AlwaysOn):
    def over(self, settings):
        """Lets the countdown of 15 seconds end; returns its notice."""
        self.start("2026-11-20T10:10:00", settings={"SetUp": {"Clock_Int": "2"}, "Quiet": settings})
        choose(self.session, self.app, "ﾀｲﾏｰ")
        press(self.app.wait(role="dialog", name="タイマー", showing=True), "スタート")
        button(self.app, "ストップ")
        self.machine.advance(15_000)
        return self.app.wait(role="label", name="指定の時間が経過しました", showing=True)

    def notices(self):
        """The visible notices; the window that sets the timer has the same title."""
        return self.app.find_all(role="dialog", name="タイマー", showing=True,
                                 which=lambda node: node.find(role="spin box") is None)

    def test_a_silent_notice(self):
        self.over({"Hours": "True", "From": "0", "To": "0", "Timer": "True"})
        press(self.app, "確認")
        wait_for(lambda: not self.notices(), "the notice closed")
        self.check_silence()
        self.assertEqual(self.app.find_all(role="alert message", showing=True), [])

    def test_a_notice_at_half_the_volume(self):
        self.over({"Volume": "50"})
        samples = wave_samples(self.session.directory / "folder/TKW00.wav")
        self.assertTrue(self.sound.take(quieter(samples, 50).replace(b"\0", b""), "the timer's sound"))


class RealServer(TickwellCase):
    """On a real sound server."""

    def start(self, volume):
        self.server = SoundServer(self.session)
        self.addCleanup(self.server.close)
        self.time = VirtualTime("2026-11-20T12:59:00", 307000)
        self.addCleanup(self.time.close)
        self.app = start_tickwell(self.session, settings={"Quiet": {"Volume": str(volume)}}, virtual_time=self.time,
                                  environment=self.server.environment)
        wait_on_screen(self.session, self.app)
        self.time.advance(START_UP_DELAY)
        wait_lines(self.app, lower=lambda text: "59" in text)

    def wait_strike(self, percent):
        expected = without_silence(quieter(wave_samples(self.session.directory / "folder/TKW01.wav"), percent))
        self.server.wait_recording(lambda recording: len(without_silence(recording)) >= len(expected), "the strike",
                                   PLAYING)
        wait_for(lambda: self.server.streams() == 0, "the end of the stream", PLAYING)
        self.assertTrue(without_silence(self.server.recording()) == expected)

    def test_one_o_clock_at_half_the_volume(self):
        self.start(50)
        self.time.advance(50_000)
        self.wait_strike(50)

    def test_one_o_clock_at_full_volume_is_the_file(self):
        self.start(100)
        self.time.advance(50_000)
        self.wait_strike(100)

    def test_the_volume_is_heard_before_it_is_chosen(self):
        self.start(100)
        choose(self.session, self.app, "環境設定")
        settings = wait_window(self.app, "環境設定")
        settings.wait(role="page tab", name="お知らせ").press()
        settings.wait(role="spin box", name="時報とタイマーの音量（パーセント）", showing=True).set_value(30)
        press(settings, "聞く")
        self.wait_strike(30)


if __name__ == "__main__":
    unittest.main()
