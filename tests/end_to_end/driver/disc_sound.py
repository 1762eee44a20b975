# SPDX-License-Identifier: GPL-3.0-or-later
"""Discs made for tests, and which parts of them were heard on a sound server."""

import os
import subprocess
from array import array
from pathlib import Path
from typing import NamedTuple

DISCS_VARIABLE = "TICKWELL_MAKE_DISCS"
FRAME = 4  # bytes: 16-bit stereo
SECTOR = 588 * FRAME
SECOND = 44100 * FRAME
KEYS = (64 * FRAME, 8 * FRAME, FRAME)  # bytes that locate a sound on a disc; fewer only if no more was heard


class Disc(NamedTuple):
    """The sound of a disc's sectors in order. Positions are byte offsets into it."""
    sound: bytes
    starts: tuple  # positions of the tracks

    def track(self, number):
        """The position of the first audible frame of a track; the first track is 1."""
        start = self.starts[number - 1]
        return start + _silence(self.sound, start)

    @property
    def last(self):
        """The end of the last audible frame."""
        return _whole_frames(len(self.sound.rstrip(b"\0")) + FRAME - 1)


class Heard(NamedTuple):
    """A piece of a disc, from one position to another."""
    start: int
    end: int

    @property
    def seconds(self):
        return (self.end - self.start) / SECOND


def make_discs(folder):
    """Writes the disc images into a folder; returns {name: Disc}."""
    command = [os.environ[DISCS_VARIABLE], folder]
    answer = subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True, timeout=60).stdout
    return {name: _disc(Path(folder, f"{name}.bin"), [int(word) for word in words])
            for name, *words in map(str.split, answer.splitlines())}


def heard(recording, disc):
    """The pieces of a disc in a recording, in order. Silence is skipped, and adjacent pieces are merged. Raises
    AssertionError for a sound that is not on the disc."""
    pieces, at = [], _silence(recording, 0)
    end = _whole_frames(len(recording))
    while at < end:
        piece = _piece(disc.sound, recording[at:end])
        at += piece.end - piece.start
        if pieces and pieces[-1].end == piece.start:
            piece = Heard(pieces.pop().start, piece.end)
        pieces.append(piece)
        at += _silence(recording, at)
    return pieces


def sounding(sound):
    """A sound without its silent frames, because a busy machine can insert any number of them."""
    return array("I", filter(None, array("I", sound[:_whole_frames(len(sound))]))).tobytes()


def hertz(sound):
    """The frequency of the left channel: rising zero crossings per second."""
    samples = array("h", sound)[::2]
    rises = sum(before < 0 <= after for before, after in zip(samples, samples[1:]))
    return rises * 44100 / len(samples)


def _disc(path, sectors):
    *starts, end = (sector * SECTOR for sector in sectors)
    sound = path.read_bytes()
    assert len(sound) == end, f"{path} is no such disc"
    return Disc(sound, tuple(starts))


def _whole_frames(size):
    return size - size % FRAME


def _silence(sound, at):
    """The length of the silence at `at`, in bytes of complete frames."""
    rest = sound[at:]
    return _whole_frames(len(rest) - len(rest.lstrip(b"\0")))


def _piece(sound, recorded):
    """The longest piece of a disc that the recording starts with."""
    for key in (recorded[:size] for size in KEYS):
        places = [place for place in _places(sound, key) if place % FRAME == 0]
        if places:
            ends = [Heard(place, place + _same(sound[place:], recorded)) for place in places]
            return max(ends, key=lambda piece: piece.end - piece.start)
    raise AssertionError(f"a sound that is not on the disc: {recorded[:KEYS[0]].hex()}")


def _places(sound, key):
    place = sound.find(key)
    while place >= 0:
        yield place
        place = sound.find(key, place + 1)


def _same(one, other):
    """The number of bytes, in complete frames, that two sounds have in common at the start."""
    low, high = 0, min(len(one), len(other))
    while low < high:
        middle = (low + high + 1) // 2
        if one[low:middle] == other[low:middle]:
            low = middle
        else:
            high = middle - 1
    return _whole_frames(low)
