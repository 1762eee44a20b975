# SPDX-License-Identifier: GPL-3.0-or-later
"""Discs made for tests, and what of them was heard on a sound server."""

import os
import subprocess
from array import array
from pathlib import Path
from typing import NamedTuple

DISCS_VARIABLE = "TICKWELL_MAKE_DISCS"
FRAME = 4  # bytes: 16 bits on each side
SECTOR = 588 * FRAME
SECOND = 44100 * FRAME
KEYS = (64 * FRAME, 8 * FRAME, FRAME)  # what a place on a disc is known by; less only where no more was heard


class Disc(NamedTuple):
    """A disc as its sectors follow each other. Places in it are bytes of its sound."""
    sound: bytes
    starts: tuple  # of the tracks

    def track(self, number):
        """Where a track, the first being 1, is heard from: its very first frame may be silent."""
        start = self.starts[number - 1]
        return start + _silence(self.sound, start)

    @property
    def last(self):
        """Up to where it is heard."""
        return _whole_frames(len(self.sound.rstrip(b"\0")) + FRAME - 1)


class Heard(NamedTuple):
    """A piece of a disc, from one place in its sound to another."""
    start: int
    end: int

    @property
    def seconds(self):
        return (self.end - self.start) / SECOND


def make_discs(folder):
    """Writes the images into a folder; returns {name: Disc}."""
    command = [os.environ[DISCS_VARIABLE], folder]
    answer = subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True, timeout=60).stdout
    return {name: _disc(Path(folder, f"{name}.bin"), [int(word) for word in words])
            for name, *words in map(str.split, answer.splitlines())}


def heard(recording, disc):
    """All that was heard of a disc, in the order of hearing. Silence is passed over: pieces that follow on each other
    are one. A sound that the disc does not have is an AssertionError."""
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
    """A sound without the frames that are silent: a busy machine may have put any number of them in between."""
    return array("I", filter(None, array("I", sound[:_whole_frames(len(sound))]))).tobytes()


def hertz(sound):
    """The tone on the left of a piece of sound: how often a second it rises through 0."""
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
    """How much silence lies there, in whole frames."""
    rest = sound[at:]
    return _whole_frames(len(rest) - len(rest.lstrip(b"\0")))


def _piece(sound, recorded):
    """The longest piece of a disc that a recording begins with."""
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
    """How many bytes, in whole frames, two sounds have in common at their starts."""
    low, high = 0, min(len(one), len(other))
    while low < high:
        middle = (low + high + 1) // 2
        if one[low:middle] == other[low:middle]:
            low = middle
        else:
            high = middle - 1
    return _whole_frames(low)
