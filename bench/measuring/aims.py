# SPDX-License-Identifier: GPL-3.0-or-later
"""Reference values for Tickwell's figures. Nothing fails because of them; they are for comparison by a person."""

from dataclasses import dataclass

from . import summary, tickwell

TICKWELL = ("clock", "Tickwell")
BARE = ("clock", "bare window")
KRONOMETER = ("scenes", "Kronometer")


@dataclass(frozen=True)
class Aim:
    """A quantity of one list of figures, optionally divided by that of another."""

    name: str
    words: str
    quantity: summary.Quantity
    of: tuple  # (group, label)
    to: tuple | None = None

    def as_row(self, measured):
        """The cells of a row: name, measured value, target; None if something was not measured."""
        figures = [measured[group].get(label) for group, label in filter(None, (self.of, self.to))]
        if not all(figures):
            return None
        # Figures of two groups were not measured together, but they are still paired by position.
        shortest = min(map(len, figures))
        values = [self.quantity.values(each[:shortest]) for each in figures]
        if None in values:
            return None
        return [self.name, summary.ratio_text(summary.ratios_of(*values) if self.to else values[0]), self.words]


def _scene(scene):
    return ("scenes", scene.title)


def _first_paints():
    ours = ("starts", "Tickwell")
    rows = [Aim("first paint, to the bare window", "at most 1.5", summary.FIRST_PAINT, ours, ("starts", "bare window"))]
    for peer in ("lxqt-panel worldclock", "xfce4-panel datetime", "Kronometer", "GNOME Clocks"):
        rows.append(Aim(f"first paint, to {peer}", "below 1", summary.FIRST_PAINT, ours, ("starts", peer)))
    return rows


_LAST = ("windows", "clock again")
_SHOWN = _scene(tickwell.CLOCK)
_HIDDEN = _scene(tickwell.HIDDEN)
_STOPWATCH = _scene(tickwell.STOPWATCH)

AIMS = (
    *_first_paints(),
    Aim("RSS, to the bare window", "at most 1.4", summary.RSS, TICKWELL, BARE),
    Aim("RSS, stopwatch running, to Kronometer", "below 0.5", summary.RSS, _STOPWATCH, KRONOMETER),
    Aim("RSS after every window, to before", "at most 1.25", summary.RSS, _LAST, ("windows", "before")),
    Aim("RSS after every window, to the bare window", "at most 1.4", summary.RSS, _LAST, BARE),
    Aim("RSS after every window, to Kronometer", "below 0.5", summary.RSS, _LAST, KRONOMETER),
    Aim("CPU, clock shown, to the bare window", "at most 1.1, then below 1", summary.CPU, TICKWELL, BARE),
    Aim("CPU, clock shown, to lxqt-panel worldclock", "towards 1", summary.CPU, TICKWELL,
        ("clock", "lxqt-panel worldclock")),
    Aim("CPU, hidden, to shown", "at most 0.5", summary.CPU, _HIDDEN, _SHOWN),
    Aim("switches a second, hidden", "at most 1", summary.SWITCHES, _HIDDEN),
    Aim("CPU, stopwatch, to Kronometer", "at most 0.4", summary.CPU, _STOPWATCH, KRONOMETER),
    Aim("CPU, stopwatch, to the bare window at 60 paints", "at most 1.3", summary.CPU, _STOPWATCH,
        ("scenes", "bare window, 60 paints a second")),
    Aim("repaints a second, stopwatch", "at most 60", summary.REPAINTS, _STOPWATCH),
    Aim("CPU, stopwatch hidden, to the clock hidden", "at most 2", summary.CPU,
        _scene(tickwell.HIDDEN_STOPWATCH), _HIDDEN),
)
