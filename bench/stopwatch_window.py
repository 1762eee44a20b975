#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Compares the cost of the running stopwatch with the stopped one.

Tickwell is measured alternately with its stopwatch running and stopped, each time on a private desktop. The table shows
the medians of both and the ratio running to stopped, computed per pair. The stopwatch's window is opened from the menu,
started by a key and closed again. Each wake-up is at most one tick. There is no pass or fail.
"""

import argparse
import os
import sys

from measuring import command_line, summary
from measuring.repetition import measure_window
from measuring.tickwell import SHORTEST_SETTLE, STOPPED, STOPWATCH, tickwell

QUANTITIES = (summary.CPU, summary.SWITCHES, summary.SERVER_CPU, summary.REPAINTS, summary.RSS)


def read_options():
    """Reads the command line."""
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    command_line.add_program_option(parser)
    parser.add_argument("--windows", type=command_line.count, default=3, help="pairs (default: %(default)s)")
    command_line.add_plan_options(parser)
    options = parser.parse_args()
    if options.settle < SHORTEST_SETTLE:
        parser.error(f"the stopwatch runs {SHORTEST_SETTLE:g} s after the start; settle at least so long")
    if options.windows == 0:
        parser.error("nothing to measure")
    return options


def measure_pairs(program, plan, pairs):
    """Measures alternately; returns [(figures running, figures stopped)]."""
    measured = []
    for number in range(pairs):
        running, stopped = (measure_window(tickwell(program, scene), plan)[1] for scene in (STOPWATCH, STOPPED))
        measured.append((running, stopped))
        command_line.report_progress(f"pair {number + 1} of {pairs}: CPU time a minute "
                                     f"{running.cpu_ms_per_min:.0f} ms, stopped {stopped.cpu_ms_per_min:.0f} ms")
    return measured


def main():
    """Measures and prints the results."""
    options = read_options()
    measured = measure_pairs(options.program, command_line.plan_from(options), options.windows)
    rows = [comparison.as_row() for comparison in summary.compare(measured, QUANTITIES)]
    print(summary.table(["", "running", "stopped", "running / stopped, pair by pair"], rows))
    print(f"\n{len(measured)} pairs; load of the machine {os.getloadavg()[0]:.2f}")


if __name__ == "__main__":
    sys.exit(command_line.run_script(main))
