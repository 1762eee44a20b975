# SPDX-License-Identifier: GPL-3.0-or-later
"""Menus that are open.

Qt leaves popup windows out of a program's tree of accessible things; it only tells whoever listens that one
has come up. So this listens.
"""

from gi.repository import Gio, GLib

from driver import dbus_calls

REGISTRY = ("org.a11y.atspi.Registry", "/org/a11y/atspi/registry", "org.a11y.atspi.Registry")


class Popups:
    """Keeps note of all that programs on an accessibility bus have shown and not yet hidden."""

    def __init__(self, connection):
        self._shown = {}  # (owner, path), in the order of coming; the values mean nothing
        dbus_calls.call(connection, REGISTRY, "RegisterEvent", "(s)", "object:state-changed:showing")
        connection.signal_subscribe(None, "org.a11y.atspi.Event.Object", "StateChanged", None, "showing",
                                    Gio.DBusSignalFlags.NONE, self._changed)

    def menus(self, app):
        """The open menus of a program, given its topmost node."""
        while GLib.MainContext.default().iteration(False):  # takes in what was told meanwhile
            pass
        found = []
        for owner, path in [place for place in self._shown if place[0] == app.owner]:
            node = app.at((owner, path))
            try:
                if node.role == "popup menu":
                    found.append(node)
                    continue
            except GLib.Error:  # deleted without being hidden
                pass
            self._shown.pop((owner, path))  # not asked a second time
        return found

    def _changed(self, _connection, sender, path, _interface, _signal, arguments):
        if arguments[1]:
            self._shown[sender, path] = None
        else:
            self._shown.pop((sender, path), None)
