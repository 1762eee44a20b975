# SPDX-License-Identifier: GPL-3.0-or-later
"""The accessibility bus, which connects programs and screen readers."""

from driver import dbus_calls
from driver.accessible import Node
from driver.popups import Popups
from driver.waiting import PATIENCE

STARTER = ("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus")
REGISTRY = "org.a11y.atspi.Registry"
ROOT = "/org/a11y/atspi/accessible/root"


class AccessibilityBus:
    """A connection to the session's accessibility bus, with the list of programs on it."""

    def __init__(self, session_bus):
        # The first GetAddress call starts the accessibility bus; the registry is started on that bus.
        address = dbus_calls.call(session_bus, STARTER, "GetAddress", timeout=PATIENCE)[0]
        self._connection = dbus_calls.connect(address)
        dbus_calls.call(self._connection, dbus_calls.BUS, "StartServiceByName", "(su)", REGISTRY, 0,
                        timeout=PATIENCE)
        self.popups = Popups(self._connection)
        self._registry = Node(self._connection, REGISTRY, ROOT)

    def application(self, pid):
        """The root node of the program with this process id; None until it has connected."""
        for node in self._registry.children:
            if dbus_calls.process_of(self._connection, node.owner) == pid:
                return node
        return None

    def close(self):
        dbus_calls.close(self._connection)
