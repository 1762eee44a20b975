# SPDX-License-Identifier: GPL-3.0-or-later
"""A pipe in place of a program's sound card.

It accepts sound as fast as the program writes it, so a test with virtual time need not wait for the strikes of
midnight. Silence cannot be distinguished from a pause, so it is removed from the recorded and from the expected sound.
"""

import os
import select
import threading
from pathlib import Path

from driver.processes import marked
from driver.sound_server import wave_samples
from driver.waiting import TimedOut, wait_for


class SoundPipe:
    """Records from its construction until `close`. `environment` directs programs to it."""

    def __init__(self, session, at_pace=False):
        """`at_pace`: accept sound only as fast as a sound card plays it."""
        self._session = session
        self._fifo = Path(session.directory, "sound-card")
        self._fifo.unlink(missing_ok=True)
        os.mkfifo(self._fifo)
        self.environment = {"SDL_AUDIODRIVER": "disk", "SDL_DISKAUDIOFILE": str(self._fifo)}
        if not at_pace:
            self.environment["SDL_DISKAUDIODELAY"] = "0"
        self._descriptor = os.open(self._fifo, os.O_RDWR | os.O_NONBLOCK)  # both ends: programs open and close it
        self._heard = bytearray()
        self._taking = threading.Lock()
        self._ending = threading.Event()
        self._listener = threading.Thread(target=self._listen, daemon=True)
        self._listener.start()

    def close(self):
        """Can be called repeatedly."""
        if self._descriptor is not None:
            self._ending.set()
            self._listener.join()
            os.close(self._descriptor)
            self._descriptor = None

    def heard(self):
        """The sound since the last `take`, without silence."""
        return bytes(self._heard)

    def take(self, sound, what):
        """Waits until at least as many bytes as `sound` are recorded; removes them all and returns whether they equal
        `sound`."""
        try:
            wait_for(lambda: len(self._heard) >= len(sound), what)
        except TimedOut as error:
            raise TimedOut(f"{error}: {len(self._heard)} of {len(sound)} bytes were recorded") from error
        with self._taking:
            heard, self._heard = self._heard, bytearray()
        return heard == sound

    def is_open(self):
        """Whether a process of the session, such as a program's helper, has the sound card open."""
        return any(str(self._fifo) in open_files(pid) for pid in marked(self._session.directory))

    def _listen(self):
        while not self._ending.is_set():
            if select.select([self._descriptor], [], [], 0.1)[0]:
                piece = os.read(self._descriptor, 1 << 16).replace(b"\0", b"")
                with self._taking:
                    self._heard += piece


def sound_of(path):
    """The samples of a wave file without silence."""
    return wave_samples(path).replace(b"\0", b"")


def open_files(pid):
    """The targets of a process's file descriptors; none if it has ended."""
    found = []
    try:
        for descriptor in Path(f"/proc/{pid}/fd").iterdir():
            found.extend(_target(descriptor))
    except (FileNotFoundError, ProcessLookupError):
        pass
    return found


def _target(descriptor):
    """Nothing if it was closed in the meantime."""
    try:
        return [os.readlink(descriptor)]
    except (FileNotFoundError, ProcessLookupError):
        return []
