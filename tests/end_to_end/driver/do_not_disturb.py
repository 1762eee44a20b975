# SPDX-License-Identifier: GPL-3.0-or-later
"""Mock services that tell a do-not-disturb mode on a session's private bus, each in its own way."""

import threading

from gi.repository import Gio, GLib

from driver import dbus_calls
from driver.waiting import wait_for

NOTICES, NOTICES_PATH = "org.freedesktop.Notifications", "/org/freedesktop/Notifications"
PROPERTIES = "org.freedesktop.DBus.Properties"


class _Mock:
    """A service on a connection and a thread of its own, from its construction until `close`."""

    def __init__(self, session, service, path, interfaces):
        self.asked = 0  # questions that were answered
        self._context, ready = GLib.MainContext(), threading.Event()
        self._loop = GLib.MainLoop(self._context)

        def serve():
            self._context.push_thread_default()
            self.connection = dbus_calls.connect(session.environment["DBUS_SESSION_BUS_ADDRESS"])
            for interface in Gio.DBusNodeInfo.new_for_xml(interfaces).interfaces:
                self.connection.register_object(path, interface, self._answer, None, None)
            dbus_calls.call(self.connection, dbus_calls.BUS, "RequestName", "(su)", service, 0)
            ready.set()
            self._loop.run()
        self._thread = threading.Thread(target=serve, daemon=True)
        self._thread.start()
        assert ready.wait(30)

    def close(self):
        """Ends the service. Can be called repeatedly."""
        if self._thread.is_alive():
            self._loop.quit()
            self._thread.join()
            dbus_calls.close(self.connection)

    def wait_asked(self, before):
        """Waits until a question was answered after `before` of them."""
        wait_for(lambda: self.asked > before, "a question about the mode")

    def _answer(self, _connection, _sender, _path, _interface, method, arguments, invocation, *_rest):
        value = self.value(method, arguments.unpack())
        if value is None:
            invocation.return_dbus_error("org.freedesktop.DBus.Error.InvalidArgs", "unknown")
        else:
            invocation.return_value(GLib.Variant("(v)", (value,)))
        self.connection.flush_sync(None)
        self.asked += 1


class NotificationService(_Mock):
    """A notification service with one property: "Inhibited", or dunst's "paused"."""

    XML = f"""<node><interface name="{PROPERTIES}"><method name="Get"><arg type="s" direction="in"/>
        <arg type="s" direction="in"/><arg type="v" direction="out"/></method></interface></node>"""

    def __init__(self, session, mode, interface=NOTICES, name="Inhibited"):
        self._interface, self._name = interface, name
        self.mode = mode  # a GLib.Variant
        super().__init__(session, NOTICES, NOTICES_PATH, self.XML)

    def value(self, _method, arguments):
        return self.mode if tuple(arguments) == (self._interface, self._name) else None

    def turn(self, on):
        """Changes the mode, tells it, and waits until the program has asked."""
        before, self.mode = self.asked, GLib.Variant("b", on)
        changed = GLib.Variant("(sa{sv}as)", (self._interface, {self._name: self.mode}, []))
        self.connection.emit_signal(None, NOTICES_PATH, PROPERTIES, "PropertiesChanged", changed)
        self.wait_asked(before + 1)  # it asks for both properties


class Xfconf(_Mock):
    """Xfce's settings service with the notification daemon's setting, which is absent at first."""

    NAME, PATH = "org.xfce.Xfconf", "/org/xfce/Xfconf"
    XML = f"""<node><interface name="{NAME}"><method name="GetProperty"><arg type="s" direction="in"/>
        <arg type="s" direction="in"/><arg type="v" direction="out"/></method></interface></node>"""

    def __init__(self, session):
        self.mode = None
        super().__init__(session, self.NAME, self.PATH, self.XML)

    def value(self, _method, arguments):
        return self.mode if tuple(arguments) == ("xfce4-notifyd", "/do-not-disturb") else None

    def turn(self, on):
        before, self.mode = self.asked, GLib.Variant("b", on)
        changed = GLib.Variant("(ssv)", ("xfce4-notifyd", "/do-not-disturb", self.mode))
        self.connection.emit_signal(None, self.PATH, self.NAME, "PropertyChanged", changed)
        self.wait_asked(before)
