# SPDX-License-Identifier: GPL-3.0-or-later
"""Calls on a session's private message bus, never on the bus of the desktop that runs the tests."""

from gi.repository import Gio, GLib

from driver.waiting import SLOWNESS

CALL_TIMEOUT = 10.0 * SLOWNESS  # s; a program that does not answer within it hangs
BUS = ("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus")


def connect(address):
    """A connection to the bus at this address; the caller closes it."""
    flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
    return Gio.DBusConnection.new_for_address_sync(address, flags, None, None)


def close(connection):
    """Closes a connection, even if its bus has ended."""
    if not connection.is_closed():
        connection.close_sync(None)


def call(connection, place, method, signature="()", *arguments, timeout=CALL_TIMEOUT):
    """Calls a method at a place (owner, path, interface) and returns its reply as a tuple. Raises GLib.Error."""
    owner, path, interface = place
    answer = connection.call_sync(owner, path, interface, method, GLib.Variant(signature, arguments), None,
                                  Gio.DBusCallFlags.NONE, int(timeout * 1000), None)
    return answer.unpack()


def process_of(connection, owner):
    """The process id of a bus name's owner, or None if the name no longer has an owner."""
    try:
        return call(connection, BUS, "GetConnectionUnixProcessID", "(s)", owner)[0]
    except GLib.Error as error:
        if error.matches(Gio.dbus_error_quark(), Gio.DBusError.NAME_HAS_NO_OWNER):
            return None
        raise
