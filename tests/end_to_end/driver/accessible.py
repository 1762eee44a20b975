# SPDX-License-Identifier: GPL-3.0-or-later
"""What a program reports to a screen reader: its windows, labels, buttons and texts.

AT-SPI is used as plain D-Bus. The usual client library has a cache and needs a main loop, so a test could read outdated
values; here each query goes to the program itself. Qt 6.4 does not report a widget's object name, so widgets are
identified by role, name and position.
"""

from gi.repository import Gio, GLib

from driver import dbus_calls
from driver.accessible_search import Searchable

ACCESSIBLE = "org.a11y.atspi.Accessible"
ACTION = "org.a11y.atspi.Action"
COMPONENT = "org.a11y.atspi.Component"
EDITABLE_TEXT = "org.a11y.atspi.EditableText"
SELECTION = "org.a11y.atspi.Selection"
TABLE = "org.a11y.atspi.Table"
TEXT = "org.a11y.atspi.Text"
VALUE = "org.a11y.atspi.Value"
PROPERTIES = "org.freedesktop.DBus.Properties"

NOTHING = "/org/a11y/atspi/null"  # path that means "no object"

# In bit order.
STATES = """
    invalid active armed busy checked collapsed defunct editable enabled expandable expanded focusable
    focused has-tooltip horizontal iconified modal multi-line multiselectable opaque pressed resizable
    selectable selected sensitive showing single-line stale transient vertical visible manages-descendants
    indeterminate required truncated animated invalid-entry supports-autocompletion selectable-text
    is-default visited checkable has-popup read-only
""".split()


class Gone(AssertionError):
    """The queried program has left the bus: it ended or crashed."""


class Node(Searchable):
    """An accessible object, queried again on each access. Two nodes are equal if they refer to the same object."""

    def __init__(self, connection, owner, path):
        self.connection, self.owner, self.path = connection, owner, path

    def __eq__(self, other):
        return isinstance(other, Node) and (self.owner, self.path) == (other.owner, other.path)

    def __hash__(self):
        return hash((self.owner, self.path))

    def call(self, interface, method, signature="()", *arguments):
        """Calls a method of the object. Raises GLib.Error if the object cannot answer, Gone if the program has
        ended."""
        try:
            place = (self.owner, self.path, interface)
            return dbus_calls.call(self.connection, place, method, signature, *arguments)
        except GLib.Error as error:
            # A unique bus name is never reused, so waiting is pointless.
            if error.matches(Gio.dbus_error_quark(), Gio.DBusError.SERVICE_UNKNOWN):
                raise Gone("the program has left the accessibility bus") from error
            raise

    def get_property(self, interface, name):
        return self.call(PROPERTIES, "Get", "(ss)", interface, name)[0]

    def at(self, place):
        """The node at an (owner, path) pair as AT-SPI returns it, or None."""
        return None if place[1] == NOTHING else Node(self.connection, *place)

    # Identity and state

    @property
    def name(self):
        return self.get_property(ACCESSIBLE, "Name")

    @property
    def description(self):
        return self.get_property(ACCESSIBLE, "Description")

    @property
    def role(self):
        """The AT-SPI role name: "label", "push button", "check box", "dialog", "alert message" …; a plain Qt window is
        a "filler"."""
        return self.call(ACCESSIBLE, "GetRoleName")[0]

    @property
    def states(self):
        low, high = self.call(ACCESSIBLE, "GetState")[0]
        bits = low | high << 32
        return {state for index, state in enumerate(STATES) if bits >> index & 1}

    @property
    def showing(self):
        """Whether it is visible on the screen. A closed window stays in the tree without this state."""
        return "showing" in self.states

    @property
    def enabled(self):
        return "enabled" in self.states

    @property
    def interfaces(self):
        return {name.rpartition(".")[2] for name in self.call(ACCESSIBLE, "GetInterfaces")[0]}

    @property
    def parent(self):
        return self.at(self.get_property(ACCESSIBLE, "Parent"))

    @property
    def children(self):
        return [self.at(place) for place in self.call(ACCESSIBLE, "GetChildren")[0] if place[1] != NOTHING]

    @property
    def extents(self):
        """(x, y, width, height) in screen pixels."""
        return self.call(COMPONENT, "GetExtents", "(u)", 0)[0]

    # Contents

    @property
    def text(self):
        """The text of a text field or a document."""
        return self.call(TEXT, "GetText", "(ii)", 0, -1)[0]

    def set_text(self, text):
        """Replaces the text at once, in any language; typed text is limited to characters on the keyboard."""
        return self.call(EDITABLE_TEXT, "SetTextContents", "(s)", text)[0]

    @property
    def value(self):
        """The current value of a slider, spin box or progress bar."""
        return self.get_property(VALUE, "CurrentValue")

    def set_value(self, value):
        self.call(PROPERTIES, "Set", "(ssv)", VALUE, "CurrentValue", GLib.Variant("d", value))

    def table(self):
        """The names of a table's cells, row by row."""
        rows, columns = (self.get_property(TABLE, name) for name in ("NRows", "NColumns"))
        return [[self.cell(row, column).name for column in range(columns)] for row in range(rows)]

    def cell(self, row, column):
        return self.at(self.call(TABLE, "GetAccessibleAt", "(ii)", row, column)[0])

    def select_child(self, index):
        return self.call(SELECTION, "SelectChild", "(i)", index)[0]

    # Actions

    @property
    def actions(self):
        return [action[0] for action in self.call(ACTION, "GetActions")[0]]

    def press(self, action=0):
        """Performs the object's action: presses a button, chooses a menu item. For a check box or radio button the
        program does not see a "click"; use the hand for those."""
        return self.call(ACTION, "DoAction", "(i)", action)[0]

    def press_and_go(self, action=0):
        """The same without waiting for the reply, for a menu item that replies only after the dialog that it opens is
        closed."""
        self.connection.call(self.owner, self.path, ACTION, "DoAction", GLib.Variant("(i)", (action,)), None,
                             Gio.DBusCallFlags.NO_AUTO_START, -1, None, None)
        self.connection.flush_sync()

    def grab_focus(self):
        return self.call(COMPONENT, "GrabFocus")[0]
