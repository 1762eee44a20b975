#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""What the clock costs beside a bare Qt window of the same size.

Tickwell and the bare window are measured in turn, each time on a desktop of its own; the table shows the
medians of both and the ratio Tickwell to bare window, pair by pair. It judges nothing: the exit code is 0
whenever both could be measured.
"""

import argparse
import json
import os
import shutil
import sys
from dataclasses import dataclass
from pathlib import Path

from measuring import command_line
from measuring.errors import MeasuringError
from measuring.repetition import StartFigures, Subject, WindowFigures, measure_start, measure_window
from measuring.summary import Comparison, table

PROGRAM_FILES = ("DayDate.mdb", "Help.hlp", *(f"TKW{number:02}.wav" for number in range(6)))

CLOCK_SHOWN_AFTER = 11.0  # seconds: Tickwell's start-up delays of 3 s and 8 s
SHORTEST_SETTLE = 15.0  # the clock has wiped in by then

# Title, unit, field of the figures, and what the field is divided by.
START_QUANTITIES = (
    ("start to first window", "ms", "mapped_ms", 1),
    ("start to first painted frame", "ms", "painted_ms", 1),
)
WINDOW_QUANTITIES = (
    ("CPU time", "ms a minute", "cpu_ms_per_min", 1),
    ("voluntary switches", "a second", "voluntary_per_s", 1),
    ("RSS", "MiB", "rss_kib", 1024),
    ("PSS", "MiB", "pss_kib", 1024),
    ("anonymous memory", "MiB", "anonymous_kib", 1024),
    ("peak memory (VmHWM)", "MiB", "peak_rss_kib", 1024),
    ("CPU time of the X server", "ms a minute", "server_cpu_ms_per_min", 1),
    ("repaints", "a second", "repaints_per_s", 1),
)


@dataclass(frozen=True)
class Pair:
    """The same figures of both programs, taken one after the other."""

    tickwell: StartFigures | WindowFigures
    bare: StartFigures | WindowFigures


def read_options():
    """The options of the command line."""
    build = command_line.BUILD_FOLDER
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program", type=command_line.program, metavar="FILE",
                        default=os.environ.get("TICKWELL_PROGRAM") or str(build / "bin" / "tickwell"),
                        help="Tickwell (default: $TICKWELL_PROGRAM, else that of the dev build)")
    parser.add_argument("--bare", type=command_line.program, metavar="FILE",
                        default=str(build / "bench" / "bare_window"),
                        help="the bare window (default: that of the dev build)")
    parser.add_argument("--starts", type=command_line.count, default=5,
                        help="pairs of start-ups (default: %(default)s)")
    parser.add_argument("--windows", type=command_line.count, default=2,
                        help="pairs with a full window (default: %(default)s)")
    command_line.add_plan_options(parser)
    parser.add_argument("--json", type=Path, metavar="FILE",
                        help="also write the figures of every pair to FILE")
    options = parser.parse_args()
    if options.settle < SHORTEST_SETTLE:
        parser.error(f"Tickwell shows its clock {CLOCK_SHOWN_AFTER:g} s after the start; settle at least "
                     f"{SHORTEST_SETTLE:g} s")
    if options.starts + options.windows == 0:
        parser.error("nothing to measure")
    return options


def tickwell(program):
    """Tickwell, each time with a program folder of its own, as it lies beside the binary."""

    def command_in(folder):
        try:
            for name in PROGRAM_FILES:
                shutil.copy(program.parent / name, folder / name)
        except OSError as error:
            raise MeasuringError(f"the program folder cannot be copied: {error}") from error
        return [str(program), "--folder", str(folder)]

    return Subject("Tickwell", command_in)


def measure_start_pairs(both, plan, pairs):
    """Starts both in turn, so many times."""
    if pairs > 0:
        for subject in both:
            measure_start(subject, plan)  # the first start reads from the disk; it does not count
    measured = []
    for number in range(pairs):
        pair = Pair(*(measure_start(subject, plan) for subject in both))
        measured.append(pair)
        command_line.report_progress(f"start-up {number + 1} of {pairs}: {pair.tickwell.painted_ms:.0f} ms, "
                                     f"bare window {pair.bare.painted_ms:.0f} ms")
    return measured


def measure_window_pairs(both, plan, pairs):
    """Looks at both in turn, so many times; returns the pairs of start-ups and those of windows."""
    starts = []
    windows = []
    for number in range(pairs):
        (tickwell_start, tickwell_window), (bare_start, bare_window) = (
            measure_window(subject, plan) for subject in both)
        starts.append(Pair(tickwell_start, bare_start))
        windows.append(Pair(tickwell_window, bare_window))
        command_line.report_progress(f"window {number + 1} of {pairs}: CPU time a minute "
                                     f"{tickwell_window.cpu_ms_per_min:.0f} ms, "
                                     f"bare window {bare_window.cpu_ms_per_min:.0f} ms")
    return starts, windows


def compare(pairs, quantities):
    """One Comparison for each quantity that was measured."""
    comparisons = []
    for name, unit, field, divisor in quantities:
        of_tickwell = [getattr(pair.tickwell, field) for pair in pairs]
        of_bare = [getattr(pair.bare, field) for pair in pairs]
        if pairs and None not in of_tickwell + of_bare:
            comparisons.append(Comparison(name, unit, [value / divisor for value in of_tickwell],
                                          [value / divisor for value in of_bare]))
    return comparisons


def print_report(comparisons, start_pairs, window_pairs):
    """Prints the table, and under it what one must know to read it."""
    header = ["", "Tickwell", "bare window", "Tickwell / bare window, pair by pair"]
    print(table(header, [comparison.as_row() for comparison in comparisons]))
    print(f"\n{len(start_pairs)} pairs of start-ups, {len(window_pairs)} pairs of windows; "
          f"load of the machine {os.getloadavg()[0]:.2f}")
    sizes = sorted({(pair.tickwell.size, pair.bare.size) for pair in start_pairs})
    for tickwell_size, bare_size in sizes:
        print(f"Tickwell's window {tickwell_size}, bare window {bare_size}"
              + ("" if tickwell_size == bare_size else ": NOT of the same size"))


def main():
    """Measures, and prints the figures."""
    options = read_options()
    plan = command_line.plan_from(options)
    both = (tickwell(options.program), Subject("bare window", lambda _: [str(options.bare)]))
    start_pairs = measure_start_pairs(both, plan, options.starts)
    more_start_pairs, window_pairs = measure_window_pairs(both, plan, options.windows)
    start_pairs += more_start_pairs
    comparisons = compare(start_pairs, START_QUANTITIES) + compare(window_pairs, WINDOW_QUANTITIES)
    print_report(comparisons, start_pairs, window_pairs)
    if options.json:
        records = [comparison.as_record() for comparison in comparisons]
        try:
            options.json.write_text(json.dumps(records, indent=2) + "\n")
        except OSError as error:
            raise MeasuringError(f"cannot write {options.json}: {error.strerror}") from error


if __name__ == "__main__":
    sys.exit(command_line.run_script(main))
