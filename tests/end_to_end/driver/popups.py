# SPDX-License-Identifier: GPL-3.0-or-later
"""The open menus of a program.

Qt leaves popup windows out of a program's accessible tree and only sends an event when one is shown. This module
collects those events.
"""

from gi.repository import Gio, GLib

from driver import dbus_calls

REGISTRY = ("org.a11y.atspi.Registry", "/org/a11y/atspi/registry", "org.a11y.atspi.Registry")


class Popups:
    """Records which objects the programs on an accessibility bus have shown and not yet hidden."""

    def __init__(self, connection):
        self._shown = {}  # keys (owner, path) in the order shown; the values are unused
        dbus_calls.call(connection, REGISTRY, "RegisterEvent", "(s)", "object:state-changed:showing")
        connection.signal_subscribe(None, "org.a11y.atspi.Event.Object", "StateChanged", None, "showing",
                                    Gio.DBusSignalFlags.NONE, self._changed)

    def menus(self, app):
        """The open menus of a program, given its root node."""
        while GLib.MainContext.default().iteration(False):  # processes the pending events
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
            self._shown.pop((owner, path))  # so it is not queried again
        return found

    def _changed(self, _connection, sender, path, _interface, _signal, arguments):
        if arguments[1]:
            self._shown[sender, path] = None
        else:
            self._shown.pop((sender, path), None)
