# SPDX-License-Identifier: GPL-3.0-or-later
"""One window as handled by its window manager, and the requests that a taskbar or pager sends."""

import subprocess

from Xlib import X
from Xlib.display import Display
from Xlib.protocol.event import ClientMessage

from driver.waiting import PATIENCE, wait_for

ALL_WORKSPACES = 0xFFFFFFFF
FROM_PAGER = 2


class ManagedWindow:
    def __init__(self, session, xid):
        self.xid = xid
        self._environment = session.environment
        self._display = Display(session.display)
        self._root = self._display.screen().root
        self._window = self._display.create_resource_object("window", xid)

    def close(self):
        self._display.close()

    def is_viewable(self):
        return self._window.get_attributes().map_state == X.IsViewable

    def frame(self):
        """(left, top, right, bottom) of the window with its frame in screen pixels, right and bottom exclusive."""
        outermost = self._window
        while (above := outermost.query_tree().parent) and above.id != self._root.id:
            outermost = above
        place = outermost.get_geometry()
        return place.x, place.y, place.x + place.width, place.y + place.height

    def is_everywhere(self):
        return self.workspace() == ALL_WORKSPACES

    def workspace(self):
        """The number of its workspace, or None."""
        return self._number(self._window, "_NET_WM_DESKTOP")

    def iconify(self):
        subprocess.run(["xdotool", "windowminimize", str(self.xid)], env=self._environment, timeout=PATIENCE,
                       check=True)

    def unmap(self):
        self._window.unmap()
        self._display.sync()

    def set_workspaces(self, count):
        self._ask(self._root, "_NET_NUMBER_OF_DESKTOPS", count)
        wait_for(lambda: self._number(self._root, "_NET_NUMBER_OF_DESKTOPS") == count, f"{count} workspaces")

    def show_workspace(self, number):
        self._ask(self._root, "_NET_CURRENT_DESKTOP", number)
        wait_for(lambda: self._number(self._root, "_NET_CURRENT_DESKTOP") == number, f"workspace {number}")

    def send_to_workspace(self, number):
        self._ask(self._window, "_NET_WM_DESKTOP", number, FROM_PAGER)
        wait_for(lambda: self.workspace() == number, f"the window on workspace {number}")

    def show_desktop(self):
        self._ask(self._root, "_NET_SHOWING_DESKTOP", 1)
        wait_for(lambda: self._number(self._root, "_NET_SHOWING_DESKTOP") == 1, "the bare desktop")

    def _ask(self, window, request, *words):
        message = ClientMessage(window=window, client_type=self._display.intern_atom(request),
                                data=(32, [*words, 0, 0, 0, 0, 0][:5]))
        self._root.send_event(message, event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self._display.sync()

    def _number(self, window, name):
        found = window.get_full_property(self._display.intern_atom(name), X.AnyPropertyType)
        return None if found is None else found.value[0]
