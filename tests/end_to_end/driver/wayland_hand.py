# SPDX-License-Identifier: GPL-3.0-or-later
"""Mouse input for a Wayland compositor, sent through its protocol for virtual pointers
(wlr-virtual-pointer-unstable-v1, version 1)."""

import socket
import struct
import time

from driver.hand import DRAG_STEPS, point_of
from driver.waiting import PATIENCE

LEFT, RIGHT = 0x110, 0x111  # of linux/input-event-codes.h
PACE = 0.05  # s per step; the compositor needs a frame to determine what is under the pointer
DISPLAY = 1  # wl_display, the object that exists on every new connection
SYNC, GET_REGISTRY = 0, 1  # requests of wl_display
BIND = 0  # request of wl_registry
GLOBAL, DONE = 0, 0  # events of wl_registry and of wl_callback
CREATE = 0  # request of the virtual pointer manager
MOTION_ABSOLUTE, BUTTON, FRAME = 1, 2, 4  # requests of a virtual pointer


class WaylandHand:
    """A virtual pointer on the compositor that listens on this socket."""

    def __init__(self, path, size):
        self._size = size
        self._last = DISPLAY
        self._connection = socket.socket(socket.AF_UNIX)
        self._connection.settimeout(PATIENCE)
        self._connection.connect(str(path))
        registry = self._ask_new(DISPLAY, GET_REGISTRY)
        found = self._read_globals(registry, self._ask_new(DISPLAY, SYNC))
        seat = self._bind(registry, found, "wl_seat")
        manager = self._bind(registry, found, "zwlr_virtual_pointer_manager_v1")
        self._pointer = self._new()
        self._ask(manager, CREATE, seat, self._pointer)

    def close(self):
        self._connection.close()

    def move(self, target):
        x, y = point_of(target)
        self._event(MOTION_ABSOLUTE, x, y, *self._size)

    def click(self, target, button=LEFT):
        self.press(target, button)
        self.release(button)

    def press(self, target, button=LEFT):
        x, y = point_of(target)
        for back in (8, 0):  # a pointer must enter the window from outside the target point
            self.move((x - back, y))
        self._event(BUTTON, button, 1)

    def release(self, button=LEFT):
        self._event(BUTTON, button, 0)

    def drag(self, start, end, button=LEFT):
        (x0, y0), (x1, y1) = point_of(start), point_of(end)
        self.press(start, button)
        for step in range(1, DRAG_STEPS + 1):
            self.move((x0 + (x1 - x0) * step // DRAG_STEPS, y0 + (y1 - y0) * step // DRAG_STEPS))
        self.release(button)

    # The wire format: 32-bit words in the machine's byte order

    def _event(self, request, *words):
        self._ask(self._pointer, request, int(time.monotonic() * 1000) & 0xFFFFFFFF, *words)
        self._ask(self._pointer, FRAME)
        time.sleep(PACE)

    def _new(self):
        self._last += 1
        return self._last

    def _ask(self, target, request, *words):
        self._connection.sendall(struct.pack(f"=IHH{len(words)}I", target, request, 8 + 4 * len(words), *words))

    def _ask_new(self, target, request):
        made = self._new()
        self._ask(target, request, made)
        return made

    def _bind(self, registry, found, interface):
        made = self._new()
        name = interface.encode() + b"\0"
        padded = name + b"\0" * (-len(name) % 4)
        words = struct.unpack(f"={len(padded) // 4}I", padded)
        self._ask(registry, BIND, found[interface], len(name), *words, 1, made)
        return made

    def _read_globals(self, registry, callback):
        """Reads the compositor's globals: {interface: name}."""
        found, bytes_ = {}, b""
        while True:
            bytes_ += self._connection.recv(65536)
            while len(bytes_) >= 8 and len(bytes_) >= (size := struct.unpack_from("=H", bytes_, 6)[0]):
                (target, event), body, bytes_ = struct.unpack_from("=IH", bytes_), bytes_[8:size], bytes_[size:]
                if (target, event) == (callback, DONE):
                    return found
                if (target, event) == (registry, GLOBAL):
                    name, length = struct.unpack_from("=II", body)
                    found[body[8:8 + length - 1].decode()] = name
