#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Compares the cost of texts without a background with that of the plain window.

Tickwell is measured alternately with a transparent background and a thick outline, and with neither, each
time on a private desktop with a compositing window manager. The tables show both medians and the median of
the ratios transparent to plain of the pairs: for the clock, for a wipe every ten seconds, and for the running
stopwatch. There is no pass or fail.
"""

import argparse
import sys
from dataclasses import replace

from measuring import command_line, pairs
from measuring.tickwell import CLOCK, STOPWATCH, WIPES

SCENES = {"clock": CLOCK, "wipes": WIPES, "stopwatch": STOPWATCH}
MANAGER = ("xfwm4", "--compositor=on", "--vblank=off")


def read_options():
    """Reads the command line."""
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    command_line.add_program_option(parser)
    parser.add_argument("--scenes", nargs="+", choices=SCENES, default=list(SCENES), help="default: all")
    pairs.add_options(parser)
    options = parser.parse_args()
    pairs.check_options(parser, options)
    return options


def main():
    """Measures and prints the results."""
    options = read_options()
    plan = command_line.plan_from(options, manager=MANAGER)
    for plain in (SCENES[name] for name in options.scenes):
        transparent = replace(plain, further=plain.further + "[Face]\nTransparent=True\nOutline=2\n")
        measured = pairs.measure_pairs(options.program, plan, transparent, plain, options.windows)
        pairs.print_pairs(measured, plain.title, "transparent")


if __name__ == "__main__":
    sys.exit(command_line.run_script(main))
