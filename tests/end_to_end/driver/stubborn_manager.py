# SPDX-License-Identifier: GPL-3.0-or-later
"""A window manager with two workspaces that never shows a window on both: it ignores _NET_WM_STATE_STICKY and the
number that means all workspaces. Like a compositing one, it keeps the windows of the hidden workspace mapped."""

import sys

from Xlib import X, Xatom, Xutil
from Xlib.display import Display

WORKSPACES = 2
COMMAND = (sys.executable, "-m", "driver.stubborn_manager")


class StubbornManager:
    def __init__(self):
        self._display = Display()
        self._root = self._display.screen().root
        self._root.change_attributes(event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        check = self._root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        self._set(self._root, "_NET_CURRENT_DESKTOP", 0)
        for window in (check, self._root):
            self._set(window, "_NET_SUPPORTING_WM_CHECK", check.id, Xatom.WINDOW)

    def run(self):
        while True:
            event = self._display.next_event()
            if event.type == X.MapRequest:
                self._set(event.window, "WM_STATE", Xutil.NormalState, self._display.intern_atom("WM_STATE"))
                self._set(event.window, "_NET_WM_DESKTOP", self._current())
                event.window.map()
            elif event.type == X.ConfigureRequest:
                wanted = {name: getattr(event, name) for name in ("x", "y", "width", "height")}
                event.window.configure(**wanted)
            elif event.type == X.ClientMessage:
                self._hear(event, event.data[1][0])

    def _hear(self, event, number):
        name = self._display.get_atom_name(event.client_type)
        if number < WORKSPACES and name in ("_NET_CURRENT_DESKTOP", "_NET_WM_DESKTOP"):
            self._set(event.window, name, number)

    def _current(self):
        return self._root.get_full_property(self._display.intern_atom("_NET_CURRENT_DESKTOP"), Xatom.CARDINAL).value[0]

    def _set(self, window, name, value, kind=Xatom.CARDINAL):
        window.change_property(self._display.intern_atom(name), kind, 32, [value])


if __name__ == "__main__":
    StubbornManager().run()
