#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Compares Tickwell's cost with other programs that show the time, and with a bare window.

Start-ups are measured in turn. Then all programs run in parallel, each on a private desktop, and are measured over the
same windows of time: first Tickwell's clock among the others, then Tickwell in all its scenes. Finally every window of
Tickwell is opened and closed once, and its memory is read before and after.

The number in brackets is Tickwell's value divided by this one, computed per pair. There is no pass or fail: the exit
code is 0 whenever everything could be measured. Programs that are not installed or do not start are skipped.
"""

import argparse
import os
import statistics
import sys
from dataclasses import asdict
from pathlib import Path

from measuring import command_line, peers, summary, tickwell, together
from measuring.aims import AIMS
from measuring.repetition import Subject
from measuring.windows_opened import memory_around_windows

START_QUANTITIES = (summary.FIRST_WINDOW, summary.FIRST_PAINT)
CLOCK_QUANTITIES = (summary.RSS, summary.PSS, summary.ANONYMOUS, summary.CPU, summary.SWITCHES, summary.SERVER_CPU,
                    summary.REPAINTS)
SCENE_QUANTITIES = (summary.RSS, summary.CPU, summary.SWITCHES, summary.SERVER_CPU, summary.REPAINTS)
WINDOW_QUANTITIES = (summary.RSS, summary.ANONYMOUS)

# Plans of a quarter of an hour and of a few minutes.
THOROUGH = {"starts": 5, "rounds": 2, "windows": 3, "memory_runs": 3, "window": 20.0, "repaints": 10.0}
QUICK = {"starts": 2, "rounds": 1, "windows": 2, "memory_runs": 1, "window": 10.0, "repaints": 10.0}


def read_options():
    """Reads the command line."""
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    command_line.add_program_option(parser)
    command_line.add_bare_option(parser)
    parser.add_argument("--x-window", type=command_line.program, metavar="FILE",
                        default=str(command_line.BUILD_FOLDER / "bench" / "x_window"),
                        help="the window without a toolkit (default: that of the dev build)")
    parser.add_argument("--quick", action="store_true", help="fewer and shorter repetitions, for a first look")
    for name, what in (("starts", "start-ups of each program"), ("rounds", "times that all are started anew"),
                       ("windows", "windows of time in each round"),
                       ("memory-runs", "times that every window is opened")):
        parser.add_argument(f"--{name}", type=command_line.count, metavar="NUMBER",
                            help=f"{what} (default: {THOROUGH[name.replace('-', '_')]})")
    command_line.add_plan_options(parser, window=THOROUGH["window"], repaints=THOROUGH["repaints"])
    parser.add_argument("--json", type=Path, metavar="FILE", help="also write every figure to FILE")
    parser.set_defaults(window=None, repaints=None)
    options = parser.parse_args()
    for name, value in (QUICK if options.quick else THOROUGH).items():
        if getattr(options, name) is None:
            setattr(options, name, value)
    if options.settle < tickwell.SHORTEST_SETTLE:
        parser.error(f"every scene is reached {tickwell.SHORTEST_SETTLE:g} s after the start; settle at least so long")
    return options


def clock_subjects(options):
    """Tickwell and everything that its clock is compared with."""
    return [tickwell.tickwell(options.program), Subject("bare window", lambda _: [str(options.bare)]),
            Subject("X window", lambda _: [str(options.x_window)]), *peers.clocks(), *peers.windows_at_rest()]


def scene_subjects(options):
    """Tickwell in its scenes, and the programs that some of them are compared with."""
    bare = str(options.bare)
    return [*(tickwell.tickwell(options.program, scene, scene.title) for scene in tickwell.SCENES),
            Subject("bare window, 60 paints a second", lambda _: [bare, "--paints", "60"]),
            Subject("bare window without timers", lambda _: [bare, "--paints", "0"]), *peers.stopwatches()]


def measure(options, plan):
    """{group: {label: [figures]}}; figures at the same position of the lists of a group were measured together."""
    report = command_line.report_progress
    clock = together.that_start(clock_subjects(options), plan, report)
    stopwatches = together.that_start(peers.stopwatches(), plan, report)
    scenes = [each for each in scene_subjects(options) if each.label not in
              {left.label for left in peers.stopwatches()} - {there.label for there in stopwatches}]
    measured = {"starts": together.measure_starts([*clock, *stopwatches], plan, options.starts, report),
                "clock": {}, "scenes": {}, "windows": {}}
    for number in range(options.rounds):
        for group, subjects in (("clock", clock), ("scenes", scenes)):
            for label, figures in together.measure_windows(subjects, plan, options.windows).items():
                measured[group].setdefault(label, []).extend(figures)
            report(f"{group}, round {number + 1} of {options.rounds}")
    if options.memory_runs > 0:
        measured["windows"] = memory_around_windows(options.program, plan, options.memory_runs)
    return measured


def cell(ours, theirs, quantity):
    """A median, with Tickwell's ratio to it if `ours` is given."""
    values = quantity.values(theirs)
    if not values:
        return "-"
    middle = f"{statistics.median(values):.1f}"
    ratios = summary.ratios_of(quantity.values(ours), values) if ours else []
    return f"{middle} ({statistics.median(ratios):.2f})" if ratios else middle


def group_table(title, figures, quantities, reference=None):
    """One row per program, with the ratios of the program `reference` to the others."""
    rows = [[label, *(cell(figures[reference] if reference not in (None, label) else None, each, quantity)
                      for quantity in quantities), ""] for label, each in figures.items()]
    return summary.table([title, *(quantity.title for quantity in quantities), ""], rows)


def print_report(measured):
    """Prints the tables, and targets next to the measured values."""
    for group, title, quantities, reference in (
            ("starts", "start", START_QUANTITIES, "Tickwell"), ("clock", "clock shown", CLOCK_QUANTITIES, "Tickwell"),
            ("scenes", "scenes", SCENE_QUANTITIES, None),
            ("windows", "opened and closed", WINDOW_QUANTITIES, None)):
        if any(measured[group].values()):
            print(group_table(title, measured[group], quantities, reference), end="\n\n")
    rows = [aim.as_row(measured) for aim in AIMS]
    print(summary.table(["what is looked at", "reached", "aimed at"], [row for row in rows if row]))
    print(f"\nload of the machine {os.getloadavg()[0]:.2f}")


def main():
    """Measures and prints the results."""
    options = read_options()
    measured = measure(options, command_line.plan_from(options))
    print_report(measured)
    if options.json:
        summary.write_records(options.json, {group: {label: [asdict(each) for each in figures]
                                                     for label, figures in labels.items()}
                                             for group, labels in measured.items()})


if __name__ == "__main__":
    sys.exit(command_line.run_script(main))
