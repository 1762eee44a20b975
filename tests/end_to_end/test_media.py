# SPDX-License-Identifier: GPL-3.0-or-later
"""The time signal and the CD player of the real program, recorded on a real sound server."""

import os
import re
import subprocess
import unittest
from pathlib import Path

from driver.case import TickwellCase
from driver.processes import process_of, processes_of
from driver.sound_server import SoundServer, wave_samples, without_silence
from driver.tickwell import main_window, read_settings, start_tickwell, wait_lines, wait_on_screen
from driver.virtual_time import VirtualTime
from driver.waiting import wait_for

START_UP_DELAY = 11000  # ms
NOTICE = "マルチメディアエラー"
PLAYER = "tickwell-sound"
SECONDS_OF_DISC = 2 * 44100 * 4  # bytes
SESSION = 60.0  # s; limit for twelve strikes on a busy machine
DISCS_VARIABLE = "TICKWELL_MAKE_DISCS"


class MediaCase(TickwellCase):
    def start(self, wall="2026-11-21T11:59:40", **options):
        self.time = VirtualTime(wall)
        self.addCleanup(self.time.close)
        self.app = start_tickwell(self.session, virtual_time=self.time, **options)
        wait_lines(self.app, upper="Tickwell Ver.2")
        self.xid = wait_on_screen(self.session, self.app)

    def choose(self, caption):
        self.session.hand.click(main_window(self.app))
        self.session.hand.click(self.app.wait(role="popup menu", name="メニュー").wait(name=caption))


class Notice(MediaCase):
    def test_a_missing_drive_is_reported_until_the_user_switches_that_off(self):
        self.start(settings={"Notice": {"NoCdDrive": "True"}})
        box = self.app.wait(role="alert message", name=NOTICE, showing=True)
        self.choose("環境設定")
        settings = self.app.wait(role="dialog", name="環境設定", showing=True)
        windows = self.session.windows
        wait_for(lambda: windows.is_above(windows.wait(name=NOTICE), windows.wait(name="環境設定")),
                 "the box above the settings")
        self.session.hand.click(box.wait(role="check box", name="次回から表示しない"))
        self.session.hand.click(box.wait(role="push button", name="OK"))
        self.app.wait_gone(role="alert message", name=NOTICE, showing=True)
        self.session.hand.click(settings.wait(role="push button", name="キャンセル"))
        self.app.wait_gone(role="dialog", name="環境設定", showing=True)
        self.session.windows.close_window(self.xid)
        self.assertEqual(self.app.program.wait_end(), 0)
        self.assertEqual(read_settings(self.session)["Notice"], {"NoCdDrive": "False"})
        self.start()
        self.time.advance(START_UP_DELAY)
        self.assertIsNone(self.app.find(role="alert message", name=NOTICE, showing=True))


    def test_its_tick_is_stored_at_once(self):
        self.start(settings={"Notice": {"NoCdDrive": "True"}, "SetUp": {"Op_Speed": "31"}})
        before = read_settings(self.session)
        box = self.app.wait(role="alert message", name=NOTICE, showing=True)
        self.session.hand.click(box.wait(role="check box", name="次回から表示しない"))
        self.session.hand.click(box.wait(role="push button", name="OK"))
        self.app.wait_gone(role="alert message", name=NOTICE, showing=True)
        self.app.program.kill()
        self.assertEqual(read_settings(self.session), before | {"Notice": {"NoCdDrive": "False"}})

    def test_a_disc_that_is_not_there_is_named(self):
        self.start(settings={"Notice": {"NoCdDrive": "True"}}, arguments=("--disc", "/nope.cue"))
        box = self.app.wait(role="alert message", name=NOTICE, showing=True)
        texts = [label.name for label in box.find_all(role="label")]
        self.assertTrue(any("/nope.cue\n" in text for text in texts), texts)


class TimeSignal(MediaCase):
    def setUp(self):
        super().setUp()
        self.server = SoundServer(self.session)
        self.addCleanup(self.server.close)

    def strike(self, wall, settings):
        self.start(wall, settings={"SetUp": settings}, environment=self.server.environment)
        self.time.advance(30000)

    def expect(self, file, count):
        wave = wave_samples(self.session.directory / "folder" / file)
        expected = without_silence(wave * count)
        self.server.wait_recording(lambda samples: without_silence(samples) == expected, f"{count} of {file}", SESSION)

    def test_noon_is_struck_twelve_times(self):
        self.strike("2026-11-21T11:59:40", {"Clock_Int": "1", "Clock_File": "鳩時計の音"})
        self.expect("TKW01.wav", 12)

    def test_the_half_hour_is_struck_once(self):
        self.strike("2026-11-21T21:29:40", {"Clock_Int": "0", "Clock_File": "機械時計[低い音]"})
        self.expect("TKW04.wav", 1)
        wait_for(lambda: not processes_of(self.session, PLAYER), f"the end of {PLAYER}")
        for library in ("libSDL2", "libpulse"):
            self.assertNotIn(library, Path(f"/proc/{self.app.program.pid}/maps").read_text(encoding="utf-8"))

    def test_the_sound_ends_with_the_program(self):
        self.strike("2026-11-21T11:59:40", {"Clock_Int": "1", "Clock_File": "鳩時計の音"})
        self.server.wait_recording(lambda samples: len(without_silence(samples)) > 0, "the first strike", SESSION)
        process_of(self.session, PLAYER)
        self.app.program.kill()
        wait_for(lambda: not processes_of(self.session, PLAYER), f"the end of {PLAYER}")

    def test_the_notice_of_the_timer_sounds(self):
        self.start("2026-11-21T12:10:00", settings={"SetUp": {"Function": "3", "Clock_Int": "2"}},
                   environment=self.server.environment)
        self.time.advance(START_UP_DELAY)
        self.session.hand.click(self.app.wait(role="push button", name=re.compile("スタート").match, showing=True))
        self.time.advance(15001)
        self.app.wait(role="push button", name=re.compile("確認").match, showing=True)
        self.expect("TKW00.wav", 1)


class AudioCd(MediaCase):
    def setUp(self):
        super().setUp()
        self.server = SoundServer(self.session, rate=44100, channels=2)
        self.addCleanup(self.server.close)
        self.discs = self.session.directory / "discs"
        subprocess.run([os.environ[DISCS_VARIABLE], self.discs], check=True, stdout=subprocess.DEVNULL, timeout=60)

    def test_a_disc_is_played_from_its_window_and_heard_as_it_is(self):
        disc = self.discs / "three_tones.cue"
        self.start(arguments=("--disc", disc), environment=self.server.environment)
        self.time.advance(START_UP_DELAY)
        self.choose("CDﾌﾟﾚｰﾔｰ")
        wait_lines(self.app, upper="全トラック数 3", lower=re.compile(r"\[ Total \]    \d+:\d\d").fullmatch)
        self.choose("操作ｳｨﾝﾄﾞｳの表示")
        window = self.app.wait(name="CDプレーヤー", showing=True)
        self.session.hand.click(window.wait(role="push button", name="再生"))
        self.server.wait_recording(lambda samples: len(without_silence(samples)) > SECONDS_OF_DISC, "the disc", SESSION)
        self.time.advance(1000)
        wait_lines(self.app, lower=re.compile(r"\[ 1 \]    0:0\d").fullmatch)
        self.session.hand.click(window.wait(role="push button", name="停止"))
        wait_lines(self.app, lower=re.compile(r"\[ Total \]    \d+:\d\d").fullmatch)
        heard = without_silence(self.server.recording())
        self.assertIn(heard[:SECONDS_OF_DISC], disc.with_suffix(".bin").read_bytes())


if __name__ == "__main__":
    unittest.main()
