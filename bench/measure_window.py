#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures any program with a window, each time on a private desktop, and prints one JSON object:

    starts, windows     the medians of StartFigures and WindowFigures (see measuring/repetition.py)
    all                 the figures of every repetition

    bench/measure_window.py build/dev/bench/bare_window
    bench/measure_window.py --hook 'xdotool key space' -- PROGRAM ARGUMENT...
"""

import argparse
import json
import os
import sys
from dataclasses import asdict
from pathlib import Path

from measuring import command_line
from measuring.repetition import Subject, measure_start, measure_window
from measuring.summary import medians, rounded


def read_options():
    """Reads the command line."""
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--starts", type=command_line.count, default=5,
                        help="start-ups alone (default: %(default)s)")
    parser.add_argument("--windows", type=command_line.count, default=3,
                        help="start-ups with a full window (default: %(default)s)")
    command_line.add_plan_options(parser)
    parser.add_argument("--smallest", type=size, default=(40, 16), metavar="WIDTHxHEIGHT",
                        help="the smallest window that counts as the program's (default: 40x16)")
    parser.add_argument("--hook", default="", metavar="COMMAND",
                        help="shell command run beside the program, on the same desktop")
    parser.add_argument("--hook-at", type=command_line.seconds, default=5.0, metavar="SECONDS",
                        help="when the hook is run (default: %(default)g)")
    parser.add_argument("--env", type=setting, action="append", default=[], metavar="NAME=VALUE",
                        help="added to the environment; may be given several times")
    parser.add_argument("--home-template", type=folder, metavar="FOLDER", help="copied to the home first")
    parser.add_argument("--label", help="the name in the output (default: the command)")
    parser.add_argument("command", nargs="+", metavar="COMMAND")
    options = parser.parse_args()
    if options.starts + options.windows == 0:
        parser.error("nothing to measure")
    return options


def size(text):
    """Parses "WIDTHxHEIGHT" to (width, height)."""
    width, height = map(int, text.split("x"))
    return width, height


def setting(text):
    """Parses "NAME=VALUE" to (name, value)."""
    name, separator, value = text.partition("=")
    if not name or not separator:
        raise argparse.ArgumentTypeError(f"{text} is not NAME=VALUE")
    return name, value


def folder(text):
    """The path of an existing folder."""
    path = Path(text).resolve()
    if not path.is_dir():
        raise argparse.ArgumentTypeError(f"no folder at {path}")
    return path


def main():
    """Measures and prints the results."""
    options = read_options()
    plan = command_line.plan_from(options, environment=dict(options.env), home_template=options.home_template)
    program, *arguments = options.command
    if "/" in program:
        program = os.path.abspath(program)  # the program runs in its home folder
    label = options.label or " ".join(options.command)
    subject = Subject(label, lambda _: [program, *arguments], hook=options.hook, hook_at=options.hook_at,
                      smallest=options.smallest)

    starts = []
    windows = []
    for number in range(options.starts):
        starts.append(asdict(measure_start(subject, plan)))
        command_line.report_progress(f"start-up {number + 1} of {options.starts}")
    for number in range(options.windows):
        start, window = measure_window(subject, plan)
        starts.append(asdict(start))
        windows.append(asdict(window))
        command_line.report_progress(f"window {number + 1} of {options.windows}")
    record = {"label": label, "load": os.getloadavg()[0], "starts": medians(starts)}
    if windows:
        record["windows"] = medians(windows)
    record["all"] = {"starts": list(map(rounded, starts)), "windows": list(map(rounded, windows))}
    print(json.dumps(record, ensure_ascii=False, indent=2))


if __name__ == "__main__":
    sys.exit(command_line.run_script(main))
