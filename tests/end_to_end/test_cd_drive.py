# SPDX-License-Identifier: GPL-3.0-or-later
"""The CD player with a drive: a preloaded library simulates the kernel's drive in the real program and in the helper
that it starts."""

import os
import unittest

from driver.cd_player import (FORMATS, NEXT, NOT_READY, PLAY, PLAYING_BUTTONS, REPEATS, STOPPED_BUTTONS, CdCase)
from driver.disc_sound import SECTOR, Heard

FAKE_DRIVE_VARIABLE = "TICKWELL_FAKE_DRIVE"
TONES = "three_tones.bin a0 a321 a548 L931"
TWO_TONES = "three_tones.bin a0 a321 L548"  # another disc
BAD_SECTOR = 300


class Drive(CdCase):
    def setUp(self):
        super().setUp()
        self.disc = self.discs["three_tones"]
        self.drive = self.folder / "drive"
        self.drive.symlink_to("/dev/zero")

    def start_drive(self, **features):
        files = {name: self.file(name) for name in ("disc", "tray", "busy")}
        variables = {"NODE": self.drive} | {name.upper(): path for name, path in files.items()} | features
        environment = {f"FAKE_DRIVE_{name}": str(value) for name, value in variables.items()}
        self.start(self.drive, environment | {"LD_PRELOAD": os.environ[FAKE_DRIVE_VARIABLE]})

    def file(self, name):
        return self.folder / f"drive.{name}"

    def put_in(self, words):
        """Inserts a disc in place of the current one."""
        new = self.file("new")
        new.write_text(f"{self.folder}/{words}\n", encoding="utf-8")
        new.replace(self.file("disc"))

    def wait_not_ready(self):
        self.wait_lines(**NOT_READY)
        self.wait_enabled(set())
        for menu in (FORMATS, REPEATS):
            self.assertFalse(self.window.wait(role="menu item", name=menu).enabled)

    def wait_ready(self, tracks, time):
        self.wait_total(tracks, time)
        self.wait_enabled(STOPPED_BUTTONS)

    def test_a_slow_drive_and_a_bad_sector(self):
        self.put_in(TWO_TONES)
        self.start_drive(DELAY=100, BAD=BAD_SECTOR)
        self.wait_ready(2, "0:07")
        self.play()
        self.wait_enabled(PLAYING_BUTTONS)
        self.wait_lines(lower=lambda text: text.startswith("[ 2 ]    0:0"))
        self.wait_caption("停止")
        self.wait_ready(2, "0:07")
        self.wait_silence()
        bad = BAD_SECTOR * SECTOR
        sound = self.disc.sound[:548 * SECTOR]
        expected = sound[:bad] + bytes(SECTOR) + sound[bad + SECTOR:]
        silenced = self.disc._replace(sound=expected)
        self.assertEqual(self.heard(silenced), [Heard(silenced.track(1), silenced.last)])

    def test_an_empty_drive_waits_for_a_disc(self):
        self.start_drive()
        self.wait_not_ready()
        self.assertIsNone(self.app.find(role="alert message", showing=True))  # nothing was requested
        self.put_in(TONES)
        self.wait_ready(3, "0:12")
        self.press(NEXT)
        self.play()
        self.assertEqual(self.wait_piece(self.disc, 1, 0.5)[0].start, self.disc.track(1))

    def test_a_disc_pulled_while_it_plays_and_put_in_again(self):
        self.put_in(TONES)
        self.start_drive()
        self.wait_ready(3, "0:12")
        self.play()
        self.wait_piece(self.disc, 1, 0.5)
        self.file("tray").touch()
        self.wait_not_ready()
        self.wait_silence()
        piece, = self.heard(self.disc)
        self.assertEqual(piece.start, self.disc.track(1))
        self.file("tray").unlink()
        self.wait_ready(3, "0:12")
        self.play()
        self.assertEqual(self.wait_piece(self.disc, 2, 0.5)[1].start, self.disc.track(1))

    def test_a_swapped_disc_is_not_taken_for_the_old_one(self):
        self.put_in(TONES)
        self.start_drive()
        self.wait_ready(3, "0:12")
        self.put_in(TWO_TONES)
        self.press(PLAY)  # before, the drive is not polled
        self.wait_ready(2, "0:07")
        self.assertEqual(self.heard(self.disc), [])
        self.play()
        self.wait_piece(self.disc, 1, 0.5)
        self.put_in(TONES)  # while it plays
        self.wait_caption("停止")
        self.wait_ready(3, "0:12")
        self.wait_silence()
        piece, = self.heard(self.disc)
        self.assertEqual(piece.start, self.disc.track(1))
        self.assertLess(piece.end, 548 * SECTOR)

    def test_an_open_tray_and_a_busy_drive_are_not_ready(self):
        self.put_in(TONES)
        self.file("tray").touch()
        self.start_drive()
        self.wait_not_ready()
        self.file("busy").touch()
        self.file("tray").unlink()
        self.wait_not_ready()
        self.file("busy").unlink()
        self.wait_ready(3, "0:12")


if __name__ == "__main__":
    unittest.main()
