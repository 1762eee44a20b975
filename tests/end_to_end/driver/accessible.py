# SPDX-License-Identifier: GPL-3.0-or-later
"""What a program tells a screen reader: its windows, labels, buttons and texts.

AT-SPI is spoken as plain D-Bus. The usual client library keeps a cache and wants a main loop, and a test
would read what was true a moment ago; here each question goes to the program itself. Qt 6.4 does not tell a
widget's object name this way: things are known by role, name and place.
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

NOTHING = "/org/a11y/atspi/null"  # path that stands for "no object"

# In the order of their bits.
STATES = """
    invalid active armed busy checked collapsed defunct editable enabled expandable expanded focusable
    focused has-tooltip horizontal iconified modal multi-line multiselectable opaque pressed resizable
    selectable selected sensitive showing single-line stale transient vertical visible manages-descendants
    indeterminate required truncated animated invalid-entry supports-autocompletion selectable-text
    is-default visited checkable has-popup read-only
""".split()


class Gone(AssertionError):
    """The program asked has left the bus: it ended or crashed."""


class Node(Searchable):
    """One thing on the screen, asked afresh each time. Two nodes are equal when they are the same thing."""

    def __init__(self, connection, owner, path):
        self.connection, self.owner, self.path = connection, owner, path

    def __eq__(self, other):
        return isinstance(other, Node) and (self.owner, self.path) == (other.owner, other.path)

    def __hash__(self):
        return hash((self.owner, self.path))

    def call(self, interface, method, signature="()", *arguments):
        """Asks the program. Raises GLib.Error where this thing cannot answer, Gone where the program is no
        more."""
        try:
            place = (self.owner, self.path, interface)
            return dbus_calls.call(self.connection, place, method, signature, *arguments)
        except GLib.Error as error:
            # A connection's own name is never given out again, so there is nothing to wait for.
            if error.matches(Gio.dbus_error_quark(), Gio.DBusError.SERVICE_UNKNOWN):
                raise Gone("the program has left the accessibility bus") from error
            raise

    def get_property(self, interface, name):
        return self.call(PROPERTIES, "Get", "(ss)", interface, name)[0]

    def at(self, place):
        """The node at an (owner, path) pair as AT-SPI hands them out, or None."""
        return None if place[1] == NOTHING else Node(self.connection, *place)

    # What it is

    @property
    def name(self):
        return self.get_property(ACCESSIBLE, "Name")

    @property
    def description(self):
        return self.get_property(ACCESSIBLE, "Description")

    @property
    def role(self):
        """In AT-SPI's words: "label", "push button", "check box", "dialog", "alert message" …; a plain Qt
        window is a "filler"."""
        return self.call(ACCESSIBLE, "GetRoleName")[0]

    @property
    def states(self):
        low, high = self.call(ACCESSIBLE, "GetState")[0]
        bits = low | high << 32
        return {state for index, state in enumerate(STATES) if bits >> index & 1}

    @property
    def showing(self):
        """Whether it is on the screen. A closed window stays in the tree, and does not show."""
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
        """(x, y, width, height) in pixels of the screen."""
        return self.call(COMPONENT, "GetExtents", "(u)", 0)[0]

    # What it holds

    @property
    def text(self):
        """What a text field or a document shows."""
        return self.call(TEXT, "GetText", "(ii)", 0, -1)[0]

    def set_text(self, text):
        """Replaces the text at once, in any language; typing it key by key knows the keyboard's letters
        only."""
        return self.call(EDITABLE_TEXT, "SetTextContents", "(s)", text)[0]

    @property
    def value(self):
        """Where a slider, a spin box or a progress bar stands."""
        return self.get_property(VALUE, "CurrentValue")

    def set_value(self, value):
        self.call(PROPERTIES, "Set", "(ssv)", VALUE, "CurrentValue", GLib.Variant("d", value))

    def table(self):
        """Names of a table's cells, row by row."""
        rows, columns = (self.get_property(TABLE, name) for name in ("NRows", "NColumns"))
        return [[self.cell(row, column).name for column in range(columns)] for row in range(rows)]

    def cell(self, row, column):
        return self.at(self.call(TABLE, "GetAccessibleAt", "(ii)", row, column)[0])

    def select_child(self, index):
        return self.call(SELECTION, "SelectChild", "(i)", index)[0]

    # What it does

    @property
    def actions(self):
        return [action[0] for action in self.call(ACTION, "GetActions")[0]]

    def press(self, action=0):
        """Does what the thing does when it is used: a button is pressed, a menu entry chosen. A check box or
        radio button changes without being "clicked", as the program sees it: those are for the hand."""
        return self.call(ACTION, "DoAction", "(i)", action)[0]

    def press_and_go(self, action=0):
        """The same without an answer, for a menu entry that answers only once the dialog it opens is closed
        again."""
        self.connection.call(self.owner, self.path, ACTION, "DoAction", GLib.Variant("(i)", (action,)), None,
                             Gio.DBusCallFlags.NO_AUTO_START, -1, None, None)
        self.connection.flush_sync()

    def grab_focus(self):
        return self.call(COMPONENT, "GrabFocus")[0]
