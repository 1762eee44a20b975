# SPDX-License-Identifier: GPL-3.0-or-later
"""Tickwell in the scenes in which it is measured."""

import shutil
import sqlite3
from collections.abc import Callable
from dataclasses import dataclass
from pathlib import Path

from .errors import MeasuringError
from .repetition import Subject

PROGRAM_FILES = ("DayDate.mdb", "Help.hlp", *(f"TKW{number:02}.wav" for number in range(6)))
SHOWN_AFTER = 11.0  # seconds; after both start-up delays the function is shown
ACTS_AFTER = 13.0
SHORTEST_SETTLE = 20.0  # every scene is reached by then

# Seconds for a menu or window to appear, even on a busy machine.
MOMENT = "sleep 0.7"

# The window is in the corner of the screen. A click opens its menu with no item selected; the selection wraps around,
# so the last items are reached with Up.
OPEN_MENU = f"xdotool mousemove 80 20 click 1; {MOMENT}"


def awaits(title):
    """The shell command that waits until a window is visible. xdotool fails if another window is closed during its
    search, so it is retried."""
    return (f"timeout 20 sh -c \"until xdotool search --onlyvisible --name '^{title}$' >/dev/null 2>&1; "
            "do sleep 0.2; done\"")


_OPEN_STOPWATCH = f"{OPEN_MENU}; xdotool key Down Return; {awaits('ストップウォッチ')}; {MOMENT}"
START_STOPWATCH = f"{_OPEN_STOPWATCH}; xdotool key Return; {MOMENT}; xdotool key Escape; {MOMENT}"
START_AND_STOP = (f"{_OPEN_STOPWATCH}; xdotool key Return; {MOMENT}; xdotool key Return; {MOMENT}; "
                  f"xdotool key Escape; {MOMENT}")


# Hides the clock in the notification area, the fourth menu item from the end, and checks that no window named Tickwell
# is visible.
STORE = (f"{OPEN_MENU}; xdotool key --repeat 4 Up; xdotool key Return; {MOMENT}; "
         "! xdotool search --onlyvisible --name '^Tickwell$'")


@dataclass(frozen=True)
class Scene:
    """What Tickwell does while it is measured."""

    title: str
    settings: tuple = ()  # lines of section [SetUp]
    further: str = ""  # other sections
    hook: str = ""
    beside: tuple = ()
    prepare: Callable[[Path], None] = lambda folder: None  # modifies the program folder


def _name_every_day(folder):
    """Inserts anniversaries for each day of the year, so that the upper line wipes to a new text every ten seconds on
    any date."""
    try:
        with sqlite3.connect(folder / "DayDate.mdb") as days:
            days.executemany('INSERT INTO "Kinenbi"("Name","Year","Month","Day","Week") VALUES (?,0,0,?,0)',
                             [(name, day) for day in range(1, 32) for name in ("結婚記念日", "開校記念日")])
        days.close()
    except sqlite3.Error as error:
        raise MeasuringError(f"the day database cannot be filled: {error}") from error


CLOCK = Scene("clock shown, with seconds", ("Function=0",))
STOPWATCH = Scene("stopwatch running", ("Function=2",), hook=START_STOPWATCH)
STOPPED = Scene("stopwatch stopped", ("Function=2",), hook=START_AND_STOP)
WIPES = Scene("a wipe every ten seconds", ("Function=0",), prepare=_name_every_day)
QUIET = Scene("nothing due: the old hours, without seconds", ("Function=0",), "[Digital]\nLanguage=2\n")
HIDDEN = Scene("hidden in the tray", ("Function=0",), hook=STORE, beside=("trayer",))
HIDDEN_STOPWATCH = Scene("stopwatch running, hidden in the tray", ("Function=2",),
                         hook=f"{START_STOPWATCH}; {STORE}", beside=("trayer",))
SCENES = (CLOCK, STOPWATCH, WIPES, QUIET, HIDDEN, HIDDEN_STOPWATCH)


def tickwell(program, scene=CLOCK, label="Tickwell"):
    """Tickwell with a private program folder for each repetition, copied from the files next to the binary."""

    def command_in(folder):
        try:
            for name in PROGRAM_FILES:
                shutil.copy(program.parent / name, folder / name)
        except OSError as error:
            raise MeasuringError(f"the program folder cannot be copied: {error}") from error
        scene.prepare(folder)
        return [str(program), "--folder", str(folder)]

    def furnish(home):
        settings = home / ".config/TKW2/TKW2.ini"
        settings.parent.mkdir(parents=True)
        # Measuring machines have no CD drive; the message about it would be measured instead of the window.
        lines = ["[SetUp]", "Win_Left=0", "Win_Top=0", *scene.settings, "[Notice]", "NoCdDrive=False"]
        settings.write_text("\n".join(lines) + "\n" + scene.further, encoding="utf-8")

    return Subject(label, command_in, furnish, scene.beside, scene.hook, ACTS_AFTER)
