# SPDX-License-Identifier: GPL-3.0-or-later
"""Two variants of a scene, measured alternately."""

import os

from . import command_line, summary
from .repetition import measure_window
from .tickwell import SHORTEST_SETTLE, tickwell

QUANTITIES = (summary.CPU, summary.SWITCHES, summary.SERVER_CPU, summary.REPAINTS, summary.RSS)


def add_options(parser):
    """Adds the options for the number of pairs, and those that plan_from() reads."""
    parser.add_argument("--windows", type=command_line.count, default=3, help="pairs (default: %(default)s)")
    command_line.add_plan_options(parser)


def check_options(parser, options):
    """Ends the script if the options cannot measure anything."""
    if options.settle < SHORTEST_SETTLE:
        parser.error(f"the scenes are reached {SHORTEST_SETTLE:g} s after the start; settle at least so long")
    if options.windows == 0:
        parser.error("nothing to measure")


def measure_pairs(program, plan, scene, plain, pairs):
    """Measures `scene` and `plain` alternately; returns [(figures of scene, figures of plain)]."""
    measured = []
    for number in range(pairs):
        pair = tuple(measure_window(tickwell(program, each), plan)[1] for each in (scene, plain))
        measured.append(pair)
        command_line.report_progress(f"{scene.title}, pair {number + 1} of {pairs}: CPU time a minute "
                                     f"{pair[0].cpu_ms_per_min:.0f} ms, plain {pair[1].cpu_ms_per_min:.0f} ms")
    return measured


def print_pairs(measured, title, name):
    """Prints a table with the medians and the median of the ratios of the pairs. `name`: the variant."""
    rows = [comparison.as_row() for comparison in summary.compare(measured, QUANTITIES)]
    print(f"{title}:")
    print(summary.table(["", name, "plain", f"{name} / plain, pair by pair"], rows))
    print(f"{len(measured)} pairs; load of the machine {os.getloadavg()[0]:.2f}")
