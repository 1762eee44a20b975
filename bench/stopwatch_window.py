#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""What the running stopwatch costs beside the stopped one.

Tickwell is measured in turn with its stopwatch running and with it stopped, each time on a desktop of its own; the
table shows the medians of both and the ratio running to stopped, pair by pair. Its window is opened from the menu,
started by a key and closed again. A wake-up is at most one tick. It judges nothing.
"""

import argparse
import os
import shutil
import sys
import tempfile
from dataclasses import replace
from pathlib import Path

from clock_window import PROGRAM_FILES
from measuring import command_line
from measuring.errors import MeasuringError
from measuring.repetition import Subject, measure_window
from measuring.summary import Comparison, table

SHOWN_AFTER = 13.0  # seconds: the start-up delays, and a moment
SHORTEST_SETTLE = 20.0  # the window is closed again by then
SETTINGS = "[SetUp]\nFunction=2\nWin_Left=0\nWin_Top=0\n"

# The menu's first item opens the window, whose first button is Start. Screen coordinates of the main window.
OPEN = "xdotool mousemove 80 20 click 1 sleep 1 key Down Return sleep 2"
RUNNING = f"{OPEN} key Return sleep 1 key Escape"
STOPPED = f"{OPEN} key Return sleep 1 key Return sleep 1 key Escape"

QUANTITIES = (
    ("CPU time", "ms a minute", "cpu_ms_per_min", 1),
    ("voluntary switches", "a second", "voluntary_per_s", 1),
    ("CPU time of the X server", "ms a minute", "server_cpu_ms_per_min", 1),
    ("repaints", "a second", "repaints_per_s", 1),
    ("RSS", "MiB", "rss_kib", 1024),
)


def read_options():
    """The options of the command line."""
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program", type=command_line.program, metavar="FILE",
                        default=os.environ.get("TICKWELL_PROGRAM") or
                        str(command_line.BUILD_FOLDER / "bin" / "tickwell"),
                        help="Tickwell (default: $TICKWELL_PROGRAM, else that of the dev build)")
    parser.add_argument("--windows", type=command_line.count, default=3, help="pairs (default: %(default)s)")
    command_line.add_plan_options(parser)
    options = parser.parse_args()
    if options.settle < SHORTEST_SETTLE:
        parser.error(f"the stopwatch runs {SHORTEST_SETTLE:g} s after the start; settle at least so long")
    if options.windows == 0:
        parser.error("nothing to measure")
    return options


def tickwell(program):
    """Tickwell, each time with a program folder of its own."""

    def command_in(folder):
        try:
            for name in PROGRAM_FILES:
                shutil.copy(program.parent / name, folder / name)
        except OSError as error:
            raise MeasuringError(f"the program folder cannot be copied: {error}") from error
        return [str(program), "--folder", str(folder)]

    return Subject("Tickwell", command_in)


def measure_pairs(subject, plan, pairs):
    """[(figures running, figures stopped)]"""
    measured = []
    for number in range(pairs):
        running, stopped = (measure_window(subject, replace(plan, hook=hook, hook_at=SHOWN_AFTER))[1]
                            for hook in (RUNNING, STOPPED))
        measured.append((running, stopped))
        command_line.report_progress(f"pair {number + 1} of {pairs}: CPU time a minute "
                                     f"{running.cpu_ms_per_min:.0f} ms, stopped {stopped.cpu_ms_per_min:.0f} ms")
    return measured


def main():
    """Measures, and prints the figures."""
    options = read_options()
    with tempfile.TemporaryDirectory(prefix="tickwell-bench.") as home:
        settings = Path(home) / ".config/TKW2/TKW2.ini"
        settings.parent.mkdir(parents=True)
        settings.write_text(SETTINGS, encoding="utf-8")
        plan = command_line.plan_from(options, home_template=Path(home))
        measured = measure_pairs(tickwell(options.program), plan, options.windows)
    rows = []
    for name, unit, field, divisor in QUANTITIES:
        values = [[getattr(figures, field) for figures in side] for side in zip(*measured, strict=True)]
        if None not in values[0] + values[1]:
            running, stopped = ([value / divisor for value in side] for side in values)
            rows.append(Comparison(name, unit, running, stopped).as_row())
    print(table(["", "running", "stopped", "running / stopped, pair by pair"], rows))
    print(f"\n{len(measured)} pairs; load of the machine {os.getloadavg()[0]:.2f}")


if __name__ == "__main__":
    sys.exit(command_line.run_script(main))
