# SPDX-License-Identifier: GPL-3.0-or-later
"""A fake Tickwell on the accessibility bus, without a window on the screen.

It shows wall clock and tick as two labels in a window "Tickwell", next to a message box of the same name and an open
menu, and accepts `--virtual-time` among its options. It prints its options.
"""

import sys

from gi.repository import Gio, GLib

from driver import dbus_calls
from driver.accessibility_bus import REGISTRY, ROOT, STARTER
from driver.samples.virtual_clock import VirtualClock

INTERFACES = """
<node>
  <interface name='org.a11y.atspi.Accessible'>
    <property name='Name' type='s' access='read'/>
    <method name='GetRoleName'><arg type='s' direction='out'/></method>
    <method name='GetState'><arg type='au' direction='out'/></method>
    <method name='GetChildren'><arg type='a(so)' direction='out'/></method>
  </interface>
  <interface name='org.a11y.atspi.Component'>
    <method name='GetExtents'>
      <arg type='u' direction='in'/><arg type='(iiii)' direction='out'/>
    </method>
  </interface>
</node>
"""
FOLDER = ROOT.rpartition("/")[0]
SHOWING = 1 << 25

# path: role, name, children, extents. The lower line is listed first: only its position identifies it. The menu is not
# a child of any node, like in Qt.
TREE = {
    ROOT: ("application", lambda clock: "two_lines", ("box", "window"), (0, 0, 0, 0)),
    f"{FOLDER}/menu": ("popup menu", lambda clock: "メニュー", (), (0, 0, 50, 50)),
    f"{FOLDER}/box": ("alert message", lambda clock: "Tickwell", ("icon", "message"), (0, 0, 100, 50)),
    f"{FOLDER}/icon": ("label", lambda clock: "", (), (0, 0, 20, 20)),
    f"{FOLDER}/message": ("label", lambda clock: "お知らせ", (), (0, 20, 20, 20)),
    f"{FOLDER}/window": ("filler", lambda clock: "Tickwell", ("lower", "upper"), (10, 20, 120, 40)),
    f"{FOLDER}/lower": ("label", lambda clock: f"tick {clock.tick}", (), (10, 40, 120, 20)),
    f"{FOLDER}/upper": ("label", lambda clock: f"{clock.wall:%H:%M:%S}", (), (10, 20, 120, 20)),
}


class Tree:
    """Answers the queries of a screen reader."""

    def __init__(self, connection, clock):
        self._connection, self._clock = connection, clock
        for interface in Gio.DBusNodeInfo.new_for_xml(INTERFACES).interfaces:
            for path in TREE:
                connection.register_object(path, interface, self._method, self._property, None)

    def _property(self, _connection, _sender, path, _interface, _name):
        return GLib.Variant("s", TREE[path][1](self._clock))

    def _method(self, _connection, _sender, path, _interface, method, _arguments, invocation):
        role, _, children, extents = TREE[path]
        owner = self._connection.get_unique_name()
        invocation.return_value({
            "GetRoleName": GLib.Variant("(s)", (role,)),
            "GetState": GLib.Variant("(au)", ([SHOWING, 0],)),
            "GetChildren": GLib.Variant("(a(so))", ([(owner, f"{FOLDER}/{child}") for child in children],)),
            "GetExtents": GLib.Variant("((iiii))", (extents,)),
        }[method])


def main():
    print(" ".join(sys.argv[1:]), flush=True)
    options = [word for word in sys.argv if word.startswith("--virtual-time=")]
    clock = VirtualClock(options[0] if options else "=-1,-1,2000-01-01T00:00:00,0")
    if options:
        GLib.io_add_watch(clock.read_end, GLib.PRIORITY_DEFAULT, GLib.IO_IN | GLib.IO_HUP,
                          lambda *_: clock.serve())
    session_bus = Gio.bus_get_sync(Gio.BusType.SESSION, None)
    connection = dbus_calls.connect(dbus_calls.call(session_bus, STARTER, "GetAddress")[0])
    tree = Tree(connection, clock)  # must live as long as the loop
    dbus_calls.call(connection, (REGISTRY, ROOT, "org.a11y.atspi.Socket"), "Embed", "((so))",
                    (connection.get_unique_name(), ROOT))
    connection.emit_signal(None, f"{FOLDER}/menu", "org.a11y.atspi.Event.Object", "StateChanged",
                           GLib.Variant("(siiv(so))", ("showing", 1, 0, GLib.Variant("i", 0), ("", ROOT))))
    GLib.MainLoop().run()
    del tree


if __name__ == "__main__":
    main()
