#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Compares the clock's cost with a bare Qt window of the same size.

Tickwell and the bare window are measured alternately, each time on a private desktop. The table shows the medians of
both and the ratio Tickwell to bare window, computed per pair. There is no pass or fail: the exit code is 0 whenever
both could be measured.
"""

import argparse
import os
import sys
from pathlib import Path

from measuring import command_line, summary
from measuring.repetition import Subject, measure_start, measure_window
from measuring.tickwell import SHOWN_AFTER, tickwell

SHORTEST_SETTLE = 15.0  # seconds; the first wipe has ended by then

START_QUANTITIES = (summary.FIRST_WINDOW, summary.FIRST_PAINT)
WINDOW_QUANTITIES = (summary.CPU, summary.SWITCHES, summary.RSS, summary.PSS, summary.ANONYMOUS, summary.PEAK,
                     summary.SERVER_CPU, summary.REPAINTS)


def read_options():
    """Reads the command line."""
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    command_line.add_program_option(parser)
    command_line.add_bare_option(parser)
    parser.add_argument("--starts", type=command_line.count, default=5,
                        help="pairs of start-ups (default: %(default)s)")
    parser.add_argument("--windows", type=command_line.count, default=2,
                        help="pairs with a full window (default: %(default)s)")
    command_line.add_plan_options(parser)
    parser.add_argument("--json", type=Path, metavar="FILE",
                        help="also write the figures of every pair to FILE")
    options = parser.parse_args()
    if options.settle < SHORTEST_SETTLE:
        parser.error(f"Tickwell shows its clock {SHOWN_AFTER:g} s after the start; settle at least "
                     f"{SHORTEST_SETTLE:g} s")
    if options.starts + options.windows == 0:
        parser.error("nothing to measure")
    return options


def measure_start_pairs(both, plan, pairs):
    """Starts both alternately, `pairs` times."""
    if pairs > 0:
        for subject in both:
            measure_start(subject, plan)  # the first start reads from disk and does not count
    measured = []
    for number in range(pairs):
        ours, bare = (measure_start(subject, plan) for subject in both)
        measured.append((ours, bare))
        command_line.report_progress(f"start-up {number + 1} of {pairs}: {ours.painted_ms:.0f} ms, "
                                     f"bare window {bare.painted_ms:.0f} ms")
    return measured


def measure_window_pairs(both, plan, pairs):
    """Measures both windows alternately, `pairs` times; returns the pairs of start-ups and of windows."""
    starts = []
    windows = []
    for number in range(pairs):
        ours, bare = (measure_window(subject, plan) for subject in both)
        starts.append((ours[0], bare[0]))
        windows.append((ours[1], bare[1]))
        command_line.report_progress(f"window {number + 1} of {pairs}: CPU time a minute "
                                     f"{ours[1].cpu_ms_per_min:.0f} ms, bare window {bare[1].cpu_ms_per_min:.0f} ms")
    return starts, windows


def print_report(comparisons, start_pairs, window_pairs):
    """Prints the table and notes for reading it."""
    header = ["", "Tickwell", "bare window", "Tickwell / bare window, pair by pair"]
    print(summary.table(header, [comparison.as_row() for comparison in comparisons]))
    print(f"\n{len(start_pairs)} pairs of start-ups, {len(window_pairs)} pairs of windows; "
          f"load of the machine {os.getloadavg()[0]:.2f}")
    for our_size, bare_size in sorted({(ours.size, bare.size) for ours, bare in start_pairs}):
        print(f"Tickwell's window {our_size}, bare window {bare_size}"
              + ("" if our_size == bare_size else ": NOT of the same size"))


def main():
    """Measures and prints the results."""
    options = read_options()
    plan = command_line.plan_from(options)
    both = (tickwell(options.program), Subject("bare window", lambda _: [str(options.bare)]))
    start_pairs = measure_start_pairs(both, plan, options.starts)
    more_start_pairs, window_pairs = measure_window_pairs(both, plan, options.windows)
    start_pairs += more_start_pairs
    comparisons = (summary.compare(start_pairs, START_QUANTITIES)
                   + summary.compare(window_pairs, WINDOW_QUANTITIES))
    print_report(comparisons, start_pairs, window_pairs)
    if options.json:
        summary.write_records(options.json, [comparison.as_record() for comparison in comparisons])


if __name__ == "__main__":
    sys.exit(command_line.run_script(main))
