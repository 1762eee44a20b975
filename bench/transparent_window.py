#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Compares the cost of texts without a background with that of the plain window.

Tickwell is measured alternately with a transparent background and a thick outline, and with neither, each
time on a private desktop with a compositing window manager. The tables show both medians and the median of
the ratios transparent to plain of the pairs: for the clock, for a wipe every ten seconds, and for the running
stopwatch. There is no pass or fail.
"""

import argparse
import os
import sys
from dataclasses import replace

from measuring import command_line, summary
from measuring.repetition import measure_window
from measuring.tickwell import CLOCK, SHORTEST_SETTLE, STOPWATCH, WIPES, tickwell

SCENES = {"clock": CLOCK, "wipes": WIPES, "stopwatch": STOPWATCH}
MANAGER = ("xfwm4", "--compositor=on", "--vblank=off")
QUANTITIES = (summary.CPU, summary.SWITCHES, summary.SERVER_CPU, summary.REPAINTS, summary.RSS)


def read_options():
    """Reads the command line."""
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    command_line.add_program_option(parser)
    parser.add_argument("--scenes", nargs="+", choices=SCENES, default=list(SCENES), help="default: all")
    parser.add_argument("--windows", type=command_line.count, default=3, help="pairs (default: %(default)s)")
    command_line.add_plan_options(parser)
    options = parser.parse_args()
    if options.settle < SHORTEST_SETTLE:
        parser.error(f"the scenes are reached {SHORTEST_SETTLE:g} s after the start; settle at least so long")
    if options.windows == 0:
        parser.error("nothing to measure")
    return options


def measure_pairs(program, plan, scene, pairs):
    """Measures alternately; returns [(figures transparent, figures plain)]."""
    transparent = replace(scene, further=scene.further + "[Face]\nTransparent=True\nOutline=2\n")
    measured = []
    for number in range(pairs):
        pair = tuple(measure_window(tickwell(program, each), plan)[1] for each in (transparent, scene))
        measured.append(pair)
        command_line.report_progress(f"{scene.title}, pair {number + 1} of {pairs}: CPU time a minute "
                                     f"{pair[0].cpu_ms_per_min:.0f} ms, plain {pair[1].cpu_ms_per_min:.0f} ms")
    return measured


def main():
    """Measures and prints the results."""
    options = read_options()
    plan = command_line.plan_from(options, manager=MANAGER)
    for name in options.scenes:
        measured = measure_pairs(options.program, plan, SCENES[name], options.windows)
        rows = [comparison.as_row() for comparison in summary.compare(measured, QUANTITIES)]
        print(f"{SCENES[name].title}:")
        print(summary.table(["", "transparent", "plain", "transparent / plain, pair by pair"], rows))
    print(f"\n{options.windows} pairs each; load of the machine {os.getloadavg()[0]:.2f}")


if __name__ == "__main__":
    sys.exit(command_line.run_script(main))
