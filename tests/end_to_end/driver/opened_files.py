# SPDX-License-Identifier: GPL-3.0-or-later
"""Detects whether any process opens a file."""

import ctypes
import os

OPENED = 0x20  # IN_OPEN


class OpenedFile:
    """Watches a file from its construction until `close`."""

    def __init__(self, path):
        self._library = ctypes.CDLL(None, use_errno=True)
        self._watch = self._library.inotify_init1(os.O_NONBLOCK | os.O_CLOEXEC)
        if self._watch < 0 or self._library.inotify_add_watch(self._watch, os.fsencode(path), OPENED) < 0:
            raise OSError(ctypes.get_errno(), "cannot watch", str(path))

    def close(self):
        os.close(self._watch)

    def was_opened(self):
        """Whether it was opened since the last call."""
        try:
            return bool(os.read(self._watch, 4096))
        except BlockingIOError:
            return False
