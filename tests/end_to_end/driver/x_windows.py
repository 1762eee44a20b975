# SPDX-License-Identifier: GPL-3.0-or-later
"""The windows as the X server and the window manager see them: position, stacking order, focus, closing."""

from typing import NamedTuple

from Xlib import X, error
from Xlib.display import Display
from Xlib.ext import shape
from Xlib.protocol.event import ClientMessage

from driver.waiting import PATIENCE, TimedOut, steady, wait_for

FROM_PAGER = 2  # source indication (EWMH): window managers obey some requests only from pagers


class Geometry(NamedTuple):
    """In screen pixels, without the window manager's frame."""
    x: int
    y: int
    width: int
    height: int


class TopLevel(NamedTuple):
    """A program's top-level window, without the window manager's frame."""
    xid: int
    name: str
    pid: int | None


class XWindows:
    """Queries an X server about its windows. If a window is destroyed during a query, Xlib raises XError."""

    def __init__(self, display):
        self._display = Display(display)
        self._root = self._display.screen().root

    def close(self):
        try:
            self._display.close()
        except error.ConnectionClosedError:
            pass  # the screen has already ended

    def window_manager_answers(self):
        """Whether the window manager handles a newly mapped window. It announces itself slightly before it does, and a
        window mapped in between is lost."""
        if self._property(self._root, "_NET_SUPPORTING_WM_CHECK") is None:
            return False
        probe = self._root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        probe.map()
        try:
            return wait_for(lambda: self._property(probe, "WM_STATE") is not None, "the probe taken in", timeout=0.5)
        except TimedOut:
            return False
        finally:
            probe.destroy()
            self._display.sync()

    def stacking(self):
        """The visible windows from the lowest to the topmost, including menus and tool tips."""
        windows = (self._described(frame) for frame in self._root.query_tree().children)
        return [window for window in windows if window is not None]

    def name_at(self, x, y):
        """The name of the topmost window at a point of the screen; empty for a frame whose window no longer exists: it
        receives clicks until the window manager removes it."""
        for frame in reversed(self._root.query_tree().children):
            try:
                area = frame.get_geometry()
                if area.x <= x < area.x + area.width and area.y <= y < area.y + area.height:
                    window = self._described(frame)
                    if window is not None:
                        return window.name
            except error.XError:
                pass
        return ""

    def find(self, name=None, pid=None):
        """The id of the topmost window with this name, this process or both; None if there is none."""
        for window in reversed(self.stacking()):
            if name in (None, window.name) and pid in (None, window.pid):
                return window.xid
        return None

    def wait(self, name=None, pid=None, timeout=PATIENCE):
        """Waits for such a window. If none appears, the error lists the existing windows."""
        try:
            return wait_for(lambda: self.find(name, pid), f"window name={name!r} pid={pid}", timeout)
        except TimedOut as timed_out:
            raise TimedOut(f"{timed_out}; there is: {self.stacking()}") from None

    def geometry(self, xid):
        window = self._window(xid)
        size, corner = window.get_geometry(), self._root.translate_coords(window, 0, 0)
        return Geometry(corner.x, corner.y, size.width, size.height)

    def settled_geometry(self, xid):
        """The geometry once it is stable: window managers decorate and move a window after it is shown."""
        return steady(lambda: self.geometry(xid), f"the place of window {xid:#x}")

    def input_areas(self, xid):
        """How many rectangles of the window receive clicks, and of each frame around it. The window manager follows the
        window a little later."""
        window, areas = self._window(xid), []
        while window and window != self._root:
            areas.append(len(window.shape_get_rectangles(shape.SK.Input).rectangles))
            window = window.query_tree().parent
        return areas

    def is_above(self, upper, lower):
        """Whether one window is above another in the stacking order, even if they do not overlap."""
        order = [window.xid for window in self.stacking()]
        return order.index(upper) > order.index(lower)

    def focus_owner(self):
        """The id of the outermost window that has the keyboard focus, or None."""
        focus = self._display.get_input_focus().focus
        if isinstance(focus, int):  # none, or the one under the pointer
            return None
        shown = {window.xid for window in self.stacking()}
        while focus.id not in shown:
            focus = focus.query_tree().parent
            if not focus:  # reached the root
                return None
        return focus.id

    def states(self, xid):
        """The names of the window's states, as set by the window manager."""
        found = self._property(self._window(xid), "_NET_WM_STATE")
        return {self._display.get_atom_name(atom) for atom in (found if found is not None else ())}

    def set_state(self, xid, state, wanted=True):
        """Asks the window manager to set a state of any window, as a panel does."""
        self._ask_manager(xid, "_NET_WM_STATE", int(wanted), self._display.intern_atom(state), 0, FROM_PAGER, 0)

    def raise_window(self, xid):
        """Asks the window manager to raise any window above others of its kind, as a pager does."""
        self._ask_manager(xid, "_NET_RESTACK_WINDOW", FROM_PAGER, 0, X.Above, 0, 0)

    def activate(self, xid):
        """Asks the window manager to focus any window, as a panel does."""
        self._ask_manager(xid, "_NET_ACTIVE_WINDOW", FROM_PAGER, X.CurrentTime, 0, 0, 0)

    def close_window(self, xid):
        """Asks a window to close, as the close button of its frame does."""
        window = self._window(xid)
        closing = self._display.intern_atom("WM_DELETE_WINDOW")
        if closing not in (window.get_wm_protocols() or ()):
            raise RuntimeError(f"window {xid:#x} does not take part in being closed")
        message = ClientMessage(window=window, client_type=self._display.intern_atom("WM_PROTOCOLS"),
                                data=(32, [closing, X.CurrentTime, 0, 0, 0]))
        trouble = error.CatchError(error.BadWindow)
        window.send_event(message, onerror=trouble)
        self._display.sync()
        if trouble.get_error():
            raise trouble.get_error()

    def _ask_manager(self, xid, request, *words):
        message = ClientMessage(window=self._window(xid), client_type=self._display.intern_atom(request),
                                data=(32, list(words)))
        self._root.send_event(message, event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self._display.sync()

    def _window(self, xid):
        return self._display.create_resource_object("window", xid)

    def _property(self, window, name):
        found = window.get_full_property(self._display.intern_atom(name), X.AnyPropertyType)
        return None if found is None else found.value

    def _described(self, frame):
        """The program's window inside a child of the root; None if it is not visible or no longer exists."""
        try:
            if frame.get_attributes().map_state != X.IsViewable:
                return None
            window = self._managed(frame) or frame
            name, pid = self._property(window, "_NET_WM_NAME"), self._property(window, "_NET_WM_PID")
            title = name.decode() if name else window.get_wm_name() or ""
            return TopLevel(window.id, title, pid[0] if pid else None)
        except error.XError:
            return None

    def _managed(self, window):
        """The window itself or its descendant that the window manager has marked as a program's window."""
        if self._property(window, "WM_STATE") is not None:
            return window
        below = map(self._managed, window.query_tree().children)
        return next((found for found in below if found is not None), None)
