# SPDX-License-Identifier: GPL-3.0-or-later
"""Finding things in the tree that a program shows to a screen reader."""

from gi.repository import GLib

from driver.waiting import PATIENCE, TimedOut, wait_for

DEEPEST = 30  # levels; a tree that is deeper goes round in a circle

# Nearly everything on the screen has these. A list of states that leaves them out can be read.
COMMON_STATES = {"enabled", "sensitive", "focusable", "visible", "showing"}


class Searchable:
    """The searching half of a node."""

    def walk(self, depth=DEEPEST):
        """This node and everything below it, parents first. What vanishes meanwhile is passed over."""
        yield self
        if depth:
            for child in _or_else(lambda: self.children, []):
                yield from child.walk(depth - 1)

    def matching(self, role=None, name=None, showing=None, which=None):
        """Goes through everything here and below that has all the features given. `name` is a text or a test
        of one; `which` is a further test of the node."""
        features = {"role": role, "name": name, "showing": showing}
        wanted = {feature: value for feature, value in features.items() if value is not None}
        for node in self.walk():
            if _or_else(lambda: _fits(node, wanted, which), False):
                yield node

    def find_all(self, **features):
        """All such nodes, in a list."""
        return list(self.matching(**features))

    def find(self, **features):
        """The first such node, or None."""
        return next(self.matching(**features), None)

    def wait(self, timeout=PATIENCE, **features):
        """The first such node, waited for. Where none comes the error lists what there is instead."""
        try:
            return wait_for(lambda: self.find(**features), str(features), timeout)
        except TimedOut as error:
            raise TimedOut(f"{error}; there is:\n{self.dump()}") from None

    def wait_gone(self, timeout=PATIENCE, **features):
        """Waits until there is no such node any more."""
        wait_for(lambda: not self.find(**features), f"the end of {features}", timeout)

    def dump(self, indent=0):
        """The tree below this node to read, a node a line."""
        lines = ["  " * indent + self._line()]
        lines += [child.dump(indent + 1) for child in _or_else(lambda: self.children, [])]
        return "\n".join(lines)

    def _line(self):
        parts = [
            _or_else(lambda: self.role, "(gone)"),
            _or_else(lambda: repr(self.name), ""),
            _or_else(lambda: f"text={self.text!r}", ""),
            _or_else(lambda: f"value={self.value:g}", ""),
            _or_else(lambda: f"at {tuple(self.extents)}", ""),
            _or_else(lambda: _state_words(self.states), ""),
        ]
        return " ".join(part for part in parts if part)


def agrees(wanted, found):
    """Whether something found is as wanted: a value, or a test of one."""
    return wanted(found) if callable(wanted) else wanted == found


def _state_words(states):
    missing = [f"not {state}" for state in ("showing", "enabled") if state not in states]
    return " ".join(missing + sorted(states - COMMON_STATES))


def _fits(node, wanted, which):
    agreed = all(agrees(value, getattr(node, feature)) for feature, value in wanted.items())
    return agreed and (which is None or which(node))


def _or_else(ask, otherwise):
    """What a node answers; `otherwise` where it has no such thing or is just vanishing."""
    try:
        return ask()
    except GLib.Error:
        return otherwise
