# SPDX-License-Identifier: GPL-3.0-or-later
"""The CD player operated through its window: disc images, recorded sample by sample on a real sound server."""

import unittest
from pathlib import Path

from driver.cd_player import (FORMATS, FORWARD, NEXT, PAUSE, PLAY, PLAYING_BUTTONS, PREVIOUS, REPEATS, REWIND, STOP,
                              STOPPED_BUTTONS, TITLE, CdCase)
from driver.disc_sound import SECOND, Heard, hertz, sounding
from driver.waiting import steady, wait_for

TONES = (440, 660, 880)  # Hz, of the three tracks
STEP = 3.0               # s of the disc per rewind or forward step


class Images(CdCase):
    def test_a_disc_from_its_start_to_its_end(self):
        disc = self.discs["three_tones"]
        self.start(self.folder / "three_tones.cue")
        self.wait_total(3, "0:12")
        self.assertEqual(self.enabled(), STOPPED_BUTTONS)
        self.choose_from(REPEATS, "全曲リピート")  # has no effect here
        self.play()
        self.wait_enabled(PLAYING_BUTTONS)
        for track in "123":
            self.wait_lines(upper="全トラック数 3", lower=lambda text, begin=f"[ {track} ]    0:0": text.startswith(begin))
        self.wait_caption("停止")
        self.wait_total(3, "0:12")
        self.wait_enabled(STOPPED_BUTTONS)
        self.wait_silence()
        self.assertEqual(self.heard(disc), [Heard(disc.track(1), disc.last)])
        recording = sounding(self.server.recording())
        for start, tone in zip(disc.starts, TONES):
            before = len(sounding(disc.sound[:start]))
            self.assertAlmostEqual(hertz(recording[before:before + 2 * SECOND]), tone, delta=2)

    def test_every_kind_of_image_named_from_where_it_lies(self):
        disc = self.discs["three_tones"]
        for count, image in enumerate(("three_tones_toc.toc", "three_tones.nrg"), start=1):
            self.start(image, cwd=self.folder)
            self.wait_total(3, "0:12")
            self.press(NEXT)
            self.press(NEXT)
            self.wait_lines(lower="[ 2 ]    0:03")
            self.play()
            pieces = self.wait_piece(disc, count, 1)
            self.assertEqual(pieces[-1].start, disc.track(2))
            self.quit()

    def test_data_is_passed_over_and_never_heard(self):
        disc = self.discs["mixed_mode"]
        self.start(self.folder / "mixed_mode.cue")
        self.wait_total(3, "0:12")
        self.play()
        self.wait_lines(lower=lambda text: text.startswith("[ 2 ]    0:0"))
        self.wait_caption("停止")
        self.wait_silence()
        self.assertEqual(self.heard(disc), [Heard(disc.track(2), disc.last)])

    def test_without_a_sound_server_it_says_so_and_can_be_tried_again(self):
        disc = self.discs["three_tones"]
        here = self.server.environment["PULSE_SERVER"]
        away = Path(here.removeprefix("unix:"))
        hidden = away.rename(away.with_name("hidden"))
        self.start(self.folder / "three_tones.cue")
        self.wait_total(3, "0:12")
        self.press(PLAY)
        box = self.app.wait(role="alert message", name="マルチメディアエラー", showing=True)
        self.wait_enabled(set())
        self.session.hand.click(box.wait(role="push button", name="OK"))
        hidden.rename(away)
        self.wait_enabled(STOPPED_BUTTONS)
        self.play()
        self.assertEqual(self.wait_piece(disc, 1, 0.5)[0].start, disc.track(1))


class Buttons(CdCase):
    def setUp(self):
        super().setUp()
        self.disc = self.discs["three_tones"]
        self.start(self.folder / "three_tones.cue")
        self.wait_total(3, "0:12")

    def pause(self):
        """Pauses and waits until buffered sound has played; returns what was heard until then."""
        self.press(PAUSE)
        self.wait_caption("一時停止")
        self.wait_enabled({PAUSE})
        return steady(lambda: self.heard(self.disc), "the silence of a pause")

    def wait_piece_from(self, track, count, seconds):
        """Waits until `count` pieces were heard, the last one from the start of `track` and for at least `seconds`."""
        self.assertEqual(self.wait_piece(self.disc, count, seconds)[-1].start, self.disc.track(track))

    def test_a_pause_keeps_every_sample(self):
        self.play()
        self.wait_piece_from(1, 1, 1)
        before = self.pause()
        self.wait_lines(lower="")  # the line blinks
        self.wait_lines(lower=lambda text: text.startswith("[ 1 ]    0:0"))
        self.assertEqual(self.heard(self.disc), before)
        self.press(PAUSE)
        self.wait_enabled(PLAYING_BUTTONS)
        self.wait_piece_from(1, 1, before[-1].seconds + 0.5)
        before = self.pause()
        self.wait_silence()  # a long pause closes the disc and the sound stream
        wait_for(lambda: self.helpers() == 0, "the end of all reading")
        self.session.hand.key("space")  # the only enabled button has the keyboard focus
        self.wait_caption("再生")
        self.wait_piece_from(1, 1, before[-1].seconds + 0.5)

    def test_previous_next_and_stop(self):
        self.press(PREVIOUS)
        self.wait_lines(lower="[ 3 ]    0:05")
        self.press(NEXT)
        self.wait_lines(lower="[ 1 ]    0:04")
        self.press(NEXT)
        self.wait_lines(lower="[ 2 ]    0:03")
        self.play()
        self.wait_piece_from(2, 1, 0.1)
        self.press(PREVIOUS)  # within the first second of the track
        self.wait_piece_from(1, 2, 0.1)
        self.press(NEXT)
        self.wait_piece_from(2, 3, 2)
        self.press(PREVIOUS)  # after the first second
        self.wait_piece_from(2, 4, 0.1)
        self.press(NEXT)
        self.wait_piece_from(3, 5, 0.1)
        self.press(NEXT)
        self.wait_piece_from(1, 6, 0.1)
        self.press(STOP)
        self.wait_caption("停止")
        self.wait_total(3, "0:12")
        self.wait_enabled(STOPPED_BUTTONS)
        self.wait_silence()
        self.assertEqual(len(self.heard(self.disc)), 6)

    def test_the_time_is_shown_in_three_formats(self):
        self.press(NEXT)
        self.press(NEXT)
        self.play()
        self.wait_piece_from(2, 1, 0.8)
        at = self.pause()[-1].end
        starts, whole = self.disc.starts, len(self.disc.sound)
        into, left, left_on_disc = (f"0:{round(length / SECOND):02}"
                                    for length in (at - starts[1], starts[2] - at, whole - at))
        self.wait_lines(lower=f"[ 2 ]    {into}")
        for item, text in (("全曲の残り時間", f"[ -1 ]    - {left_on_disc}"),
                           ("一曲分の残り時間", f"[ 2 ]    - {left}"), ("標準", f"[ 2 ]    {into}")):
            self.choose_from(FORMATS, item)
            self.wait_lines(upper="全トラック数 3", lower=text)

    def test_rewind_and_forward_while_they_are_held(self):
        self.play()
        self.wait_piece_from(1, 1, 0.5)
        self.press(FORWARD)  # a short press: one step
        first, second = self.wait_piece(self.disc, 2, 0.3)
        self.assertAlmostEqual((second.start - first.end) / SECOND, STEP, delta=0.1)
        self.hold(REWIND, lambda: self.wait_lines(lower="[ 1 ]    0:00"))
        self.wait_heard(self.disc, lambda pieces: pieces[-1].start == self.disc.track(1) and pieces[-1].seconds > 0.3,
                        "the disc from its start")
        self.hold(FORWARD, lambda: self.wait_caption("停止"))  # up to the end of the disc
        self.wait_total(3, "0:12")

    def hold(self, name, wait):
        """Holds a button down until `wait` returns."""
        place = self.window.wait(role="push button", name=name)
        self.session.hand.press(place)
        wait()
        self.session.hand.release(place)

    def test_it_plays_on_without_its_window_and_ends_with_the_program(self):
        self.play()
        self.wait_piece_from(1, 1, 0.5)
        self.session.hand.key("Escape")
        self.app.wait_gone(role="dialog", name=TITLE, showing=True)
        heard = self.heard(self.disc)[-1].seconds
        self.wait_piece_from(1, 1, heard + 1)
        self.wait_lines(lower=lambda text: text.startswith("[ 1 ]    0:0"))
        self.open()
        self.wait_caption("再生")
        self.wait_enabled(PLAYING_BUTTONS)
        self.assertEqual(self.helpers(), 1)
        self.quit()
        self.assertEqual(self.helpers(), 0)
        self.assertEqual(self.app.program.output(), "")


TITLES = ("夜の音楽", "月の光", "ソナタ「表」", "雨")  # of the disc and of its tracks
SHOWN = {"Cd": {"ShowsTitles": "True"}}


class Titles(CdCase):
    def shown_title(self):
        """The title in the window; None if there is none."""
        label = self.window.find(role="label", name=lambda name: name in TITLES, showing=True)
        return label and label.name

    def test_they_are_shown_from_each_kind_of_sheet(self):
        for image in ("titles_utf8.cue", "titles_shift_jis.cue", "titles_toc.toc"):
            with self.subTest(image=image):
                self.start(self.folder / image, settings=SHOWN)
                self.wait_lines(upper=TITLES[0], lower="[ Total ]    0:12")
                wait_for(lambda: self.shown_title() == TITLES[0], "the title of the disc")
                self.press(NEXT)
                self.press(NEXT)
                self.wait_lines(upper=TITLES[2], lower="[ 2 ]    0:03")
                self.play()
                self.wait_lines(upper=TITLES[3], lower=lambda text: text.startswith("[ 3 ]    0:0"))  # automatically
                wait_for(lambda: self.shown_title() == TITLES[3], "the title of the last track")
                self.press(STOP)
                self.wait_lines(upper=TITLES[0])
                self.quit()

    def test_by_default_they_are_not_shown(self):
        self.start(self.folder / "titles_utf8.cue")
        self.wait_total(3, "0:12")
        self.press(NEXT)
        self.wait_lines(upper="全トラック数 3", lower="[ 1 ]    0:04")
        self.assertIsNone(self.shown_title())
        self.quit()

    def test_a_disc_without_titles_looks_as_ever(self):
        self.start(self.folder / "three_tones.cue", settings=SHOWN)
        self.wait_total(3, "0:12")
        self.press(NEXT)
        self.wait_lines(upper="全トラック数 3", lower="[ 1 ]    0:04")
        self.assertIsNone(self.shown_title())
        self.quit()


if __name__ == "__main__":
    unittest.main()
