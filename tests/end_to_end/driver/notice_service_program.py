# SPDX-License-Identifier: GPL-3.0-or-later
"""A notification service: prints each call as a line of JSON and answers it, and does what it reads: "act ID KEY" as if
the user chose an action, "hang NAME" to leave a method unanswered.

Arguments: the file descriptor to read from, and the capabilities, separated by commas."""

import json
import os
import sys

from gi.repository import Gio, GLib

NAME = "org.freedesktop.Notifications"
PATH = "/org/freedesktop/Notifications"
INTERFACE = f"""<node><interface name="{NAME}">
<method name="GetCapabilities"><arg type="as" direction="out"/></method>
<method name="GetServerInformation"><arg type="s" direction="out"/><arg type="s" direction="out"/>
<arg type="s" direction="out"/><arg type="s" direction="out"/></method>
<method name="Notify"><arg type="s" direction="in"/><arg type="u" direction="in"/><arg type="s" direction="in"/>
<arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="as" direction="in"/>
<arg type="a{{sv}}" direction="in"/><arg type="i" direction="in"/><arg type="u" direction="out"/></method>
<method name="CloseNotification"><arg type="u" direction="in"/></method>
<signal name="NotificationClosed"><arg type="u"/><arg type="u"/></signal>
<signal name="ActionInvoked"><arg type="u"/><arg type="s"/></signal>
</interface></node>"""


class Service:
    def __init__(self, capabilities):
        self._capabilities, self._hanging, self._last = capabilities, set(), 0
        self._bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        interface = Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0]
        self._bus.register_object(PATH, interface, self._called, None, None)
        Gio.bus_own_name_on_connection(self._bus, NAME, Gio.BusNameOwnerFlags.NONE,
                                       lambda *_: self._tell(["ready"]), None)

    def obey(self, line):
        word, *rest = line.split()
        if word == "act":
            arguments = GLib.Variant("(us)", (int(rest[0]), rest[1]))
            self._bus.emit_signal(None, PATH, NAME, "ActionInvoked", arguments)
        else:
            self._hanging.add(rest[0])

    def _called(self, _bus, _sender, _path, _interface, method, arguments, call):
        self._tell([method, *arguments.unpack()])
        if method in self._hanging:
            return
        answer = None
        if method == "GetCapabilities":
            answer = GLib.Variant("(as)", (self._capabilities,))
        elif method == "GetServerInformation":
            answer = GLib.Variant("(ssss)", ("sample", "tests", "1", "1.2"))
        elif method == "Notify":
            self._last += 1
            answer = GLib.Variant("(u)", (self._last,))
        call.return_value(answer)

    @staticmethod
    def _tell(event):
        print(json.dumps(event, ensure_ascii=False), flush=True)


def main():
    service = Service(sys.argv[2].split(","))
    orders = os.fdopen(int(sys.argv[1]))

    def read(_source, _condition):
        line = orders.readline()
        if line:
            service.obey(line)
        return bool(line)
    GLib.io_add_watch(orders, GLib.PRIORITY_DEFAULT, GLib.IOCondition.IN | GLib.IOCondition.HUP, read)
    GLib.MainLoop().run()


main()
