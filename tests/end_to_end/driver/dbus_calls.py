# SPDX-License-Identifier: GPL-3.0-or-later
"""Calls over a message bus of the session's own, never over the one of the desktop that the tests run on."""

from gi.repository import Gio, GLib

from driver.waiting import SLOWNESS

CALL_TIMEOUT = 10.0 * SLOWNESS  # s; a program that does not answer for so long hangs
BUS = ("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus")


def connect(address):
    """A connection to the bus at this address; the caller closes it."""
    flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
    return Gio.DBusConnection.new_for_address_sync(address, flags, None, None)


def close(connection):
    """Closes a connection, also one whose bus has gone."""
    if not connection.is_closed():
        connection.close_sync(None)


def call(connection, place, method, signature="()", *arguments, timeout=CALL_TIMEOUT):
    """Calls a method at a place (owner, path, interface) and returns the tuple that it answers. Raises
    GLib.Error."""
    owner, path, interface = place
    answer = connection.call_sync(owner, path, interface, method, GLib.Variant(signature, arguments), None,
                                  Gio.DBusCallFlags.NONE, int(timeout * 1000), None)
    return answer.unpack()


def process_of(connection, owner):
    """Process id behind a name on the bus, or None where nobody has that name any more."""
    try:
        return call(connection, BUS, "GetConnectionUnixProcessID", "(s)", owner)[0]
    except GLib.Error as error:
        if error.matches(Gio.dbus_error_quark(), Gio.DBusError.NAME_HAS_NO_OWNER):
            return None
        raise
