#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Compares the cost of a clock that has everything to remember with that of the plain clock.

Tickwell is measured alternately with default settings, and with all reminders and remote control on, twenty running
timers and fifty alarms, no window of which is open. Nothing of it is due while it is measured. There is no pass or fail.
"""

import argparse
import subprocess
import sys
from dataclasses import replace

from measuring import command_line, pairs
from measuring.errors import MeasuringError
from measuring.tickwell import CLOCK

EVERYTHING = """[Quiet]
Hours=True
Timer=True
Desktop=True
Volume=50
[Notices]
Days=True
DaysAhead=0,1,3,7
Countdown=True
[Remote]
AcceptsCommands=True
MediaKeys=True
"""


def read_options():
    """Reads the command line."""
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    command_line.add_program_option(parser)
    parser.add_argument("--fill-tools", type=command_line.program, metavar="FILE",
                        default=str(command_line.BUILD_FOLDER / "bench" / "fill_tools"),
                        help="the program that fills the file of timers and alarms (default: that of the dev build)")
    pairs.add_options(parser)
    options = parser.parse_args()
    pairs.check_options(parser, options)
    return options


def main():
    """Measures and prints the results."""
    options = read_options()

    def fill(folder):
        filling = subprocess.run([options.fill_tools, folder], check=False, capture_output=True, text=True)
        if filling.returncode != 0:
            raise MeasuringError(f"the timers cannot be stored: {filling.stderr}")

    busy = replace(CLOCK, title="everything on", further=EVERYTHING, prepare=fill)
    measured = pairs.measure_pairs(options.program, command_line.plan_from(options), busy, CLOCK, options.windows)
    pairs.print_pairs(measured, CLOCK.title, "everything on")


if __name__ == "__main__":
    sys.exit(command_line.run_script(main))
