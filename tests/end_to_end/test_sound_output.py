# SPDX-License-Identifier: GPL-3.0-or-later
"""The sounds of the time signal, played by the program's own classes on a real sound server."""

import os
import unittest
from pathlib import Path

from driver.case import TickwellCase
from driver.sound_server import SoundServer, wave_samples, without_silence
from driver.tickwell import make_folder
from driver.waiting import wait_for

PLAYER_VARIABLE = "TICKWELL_SOUND_PLAYER"
SOUNDS = {"鳩時計の音": 1, "赤ちゃん": 2, "機械時計[高い音]": 3, "機械時計[低い音]": 4, "人の掛け声": 5}
SESSION = 30.0  # s; limit of a chime
SECOND = 22050 * 2  # bytes


class SoundOutput(TickwellCase):
    window_manager = None

    def setUp(self):
        super().setUp()
        self.folder = make_folder(self.session.directory / "folder")

    def play(self, name, count, environment):
        player = self.session.spawn([os.environ[PLAYER_VARIABLE], self.folder, name, count], environment=environment)
        wait_for(lambda: "error" in player.output() or player.check_running(), "the player")
        return player

    def server(self):
        server = SoundServer(self.session)
        self.addCleanup(server.close)
        return server

    def wave(self, name):
        return wave_samples(Path(self.folder, f"TKW{SOUNDS[name]:02}.wav"))

    def test_twelve_strikes_of_each_sound_come_back_to_back_before_the_session_ends(self):
        servers = {name: self.server() for name in SOUNDS}
        players = {name: self.play(name, 12, server.environment) for name, server in servers.items()}
        for name, player in players.items():
            self.assertEqual(player.wait_end(3 * SESSION), 0, player.output())
            self.assertIn("error 0", player.output())
        for name, server in servers.items():
            with self.subTest(name):
                recording = server.recording()
                expected = without_silence(self.wave(name) * 12)
                self.assertTrue(without_silence(recording) == expected, "the recording is not what was played")
                behind = len(recording) - recording.rindex(expected[-SECOND:]) - SECOND
                self.assertGreater(behind, SECOND, "the session was closed too early")

    def test_one_strike_is_played_once_and_the_device_closed_soon_after(self):
        server = self.server()
        player = self.play("機械時計[高い音]", 1, server.environment)
        expected = without_silence(self.wave("機械時計[高い音]"))
        server.wait_recording(lambda samples: without_silence(samples) == expected, "one strike", SESSION)
        wait_for(lambda: server.streams() == 0, "the end of the stream")
        self.assertNotIn("closed", player.output())  # the session continues without a device
        player.stop()
        self.assertEqual(without_silence(server.recording()), expected)

    def test_an_unknown_name_is_silence(self):
        server = self.server()
        player = self.play("鳩時計の音 ", 12, server.environment)
        self.assertEqual(player.wait_end(), 0)
        self.assertEqual(without_silence(server.recording()), b"")

    def test_without_a_server_it_is_silent_and_does_not_hang(self):
        nowhere = {"PULSE_SERVER": f"unix:{self.session.directory}/nowhere", "SDL_AUDIODRIVER": ""}
        for environment in (nowhere, nowhere | {"SDL_AUDIODRIVER": "pulseaudio"}):
            player = self.play("赤ちゃん", 12, environment)
            self.assertEqual(player.wait_end(3 * SESSION), 0, player.output())
            # A driver that is slow to refuse results in silence, one that refuses at once in an error.
            self.assertRegex(player.output(), "error [01]\\b")

    def test_a_server_that_dies_is_silence(self):
        server = self.server()
        player = self.play("赤ちゃん", 12, server.environment)
        server.wait_recording(lambda samples: len(without_silence(samples)) > SECOND, "sound", SESSION)
        server.kill()
        self.assertEqual(player.wait_end(3 * SESSION), 0, player.output())
        self.assertIn("closed", player.output())


if __name__ == "__main__":
    unittest.main()
