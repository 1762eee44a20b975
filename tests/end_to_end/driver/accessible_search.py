# SPDX-License-Identifier: GPL-3.0-or-later
"""Searching the tree of accessible objects of a program."""

from gi.repository import GLib

from driver.waiting import PATIENCE, TimedOut, wait_for

DEEPEST = 30  # levels; a deeper tree contains a cycle

# States that nearly every object has; leaving them out keeps a list of states readable.
COMMON_STATES = {"enabled", "sensitive", "focusable", "visible", "showing"}


class Searchable:
    """The search functions of a node."""

    def walk(self, depth=DEEPEST):
        """This node and its descendants, parents first. Objects that disappear in the meantime are skipped."""
        yield self
        if depth:
            for child in _or_else(lambda: self.children, []):
                yield from child.walk(depth - 1)

    def matching(self, role=None, name=None, showing=None, which=None):
        """Yields this node and its descendants that have all the given features. `name` is a text or a predicate of
        one; `which` is an additional predicate of the node."""
        features = {"role": role, "name": name, "showing": showing}
        wanted = {feature: value for feature, value in features.items() if value is not None}
        for node in self.walk():
            if _or_else(lambda: _fits(node, wanted, which), False):
                yield node

    def find_all(self, **features):
        """All matching nodes as a list."""
        return list(self.matching(**features))

    def find(self, **features):
        """The first matching node, or None."""
        return next(self.matching(**features), None)

    def wait(self, timeout=PATIENCE, **features):
        """Waits for the first matching node. If none appears, the error contains the tree."""
        try:
            return wait_for(lambda: self.find(**features), str(features), timeout)
        except TimedOut as error:
            raise TimedOut(f"{error}; there is:\n{self.dump()}") from None

    def wait_gone(self, timeout=PATIENCE, **features):
        """Waits until no node matches."""
        wait_for(lambda: not self.find(**features), f"the end of {features}", timeout)

    def dump(self, indent=0):
        """The tree below this node as readable text, one node per line."""
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
    """Whether `found` matches `wanted`, which is a value or a predicate."""
    return wanted(found) if callable(wanted) else wanted == found


def _state_words(states):
    missing = [f"not {state}" for state in ("showing", "enabled") if state not in states]
    return " ".join(missing + sorted(states - COMMON_STATES))


def _fits(node, wanted, which):
    agreed = all(agrees(value, getattr(node, feature)) for feature, value in wanted.items())
    return agreed and (which is None or which(node))


def _or_else(ask, otherwise):
    """The result of `ask`; `otherwise` if the node has no such property or is disappearing."""
    try:
        return ask()
    except GLib.Error:
        return otherwise
