# SPDX-License-Identifier: GPL-3.0-or-later
"""Common options and exit codes of the scripts."""

import argparse
import os
import signal
import sys
from pathlib import Path

from .desktop import DesktopOptions
from .errors import MeasuringError
from .repetition import Plan

BUILD_FOLDER = Path(__file__).resolve().parents[2] / "build" / "dev"


def add_program_option(parser):
    """Adds the option for Tickwell's path."""
    parser.add_argument("--program", type=program, metavar="FILE",
                        default=os.environ.get("TICKWELL_PROGRAM") or str(BUILD_FOLDER / "bin" / "tickwell"),
                        help="Tickwell (default: $TICKWELL_PROGRAM, else that of the dev build)")


def add_bare_option(parser):
    """Adds the option for the path of the bare window."""
    parser.add_argument("--bare", type=program, metavar="FILE", default=str(BUILD_FOLDER / "bench" / "bare_window"),
                        help="the bare window (default: that of the dev build)")


def add_plan_options(parser, **defaults):
    """Adds the options that plan_from() reads. `defaults`: fields of the plan with other default values."""
    defaults = Plan(xwatch=BUILD_FOLDER / "bench" / "xwatch", **defaults)
    parser.add_argument("--settle", type=seconds, default=defaults.settle, metavar="SECONDS",
                        help="from the start to the reading of memory and the window (default: %(default)g)")
    parser.add_argument("--window", type=positive_seconds, default=defaults.window, metavar="SECONDS",
                        help=f"over which CPU time and switches are counted (default: {defaults.window:g})")
    parser.add_argument("--repaints", type=seconds, default=defaults.repaints, metavar="SECONDS",
                        help=f"over which repaints are counted afterwards; 0: never (default: {defaults.repaints:g})")
    parser.add_argument("--start-timeout", type=positive_seconds, default=defaults.start_timeout,
                        metavar="SECONDS",
                        help="how long to wait for the first painted window (default: %(default)g)")
    parser.add_argument("--language", default=defaults.desktop.language, help="LANG (default: %(default)s)")
    parser.add_argument("--zone", default=defaults.desktop.zone, help="TZ (default: %(default)s)")
    parser.add_argument("--keep", action="store_true", help="leave the temporary homes behind")
    parser.add_argument("--xwatch", type=program, default=str(defaults.xwatch), metavar="FILE",
                        help="the xwatch program (default: that of the dev build)")


def plan_from(options, **others):
    """The plan for these options. `others` are passed to it, except `environment`, `home_template` and `manager`, which are
    passed to its desktop."""
    desktop = DesktopOptions(language=options.language, zone=options.zone, keep=options.keep,
                             environment=others.pop("environment", {}),
                             manager=others.pop("manager", DesktopOptions.manager),
                             home_template=others.pop("home_template", None))
    return Plan(xwatch=options.xwatch, settle=options.settle, window=options.window,
                repaints=options.repaints, start_timeout=options.start_timeout, desktop=desktop, **others)


def run_script(measure):
    """Runs `measure`; returns the exit code, which is 0 for any result of a complete measurement."""
    # Exits normally, so that the private desktops are shut down.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(128 + signal.SIGTERM))
    try:
        measure()
    except MeasuringError as error:
        print(f"{Path(sys.argv[0]).name}: {error}", file=sys.stderr)
        return 1
    except KeyboardInterrupt:
        return 128 + signal.SIGINT
    return 0


def report_progress(text):
    """Prints progress to standard error; only results go to standard output."""
    print(text, file=sys.stderr, flush=True)


def program(text):
    """The absolute path of an executable."""
    path = Path(text).resolve()
    if not (path.is_file() and os.access(path, os.X_OK)):
        raise argparse.ArgumentTypeError(
            f"no program at {path}; build it: cmake --preset dev && cmake --build --preset dev")
    return path


def seconds(text):
    """A number of seconds, 0 or more."""
    value = float(text)
    if not 0 <= value < float("inf"):
        raise argparse.ArgumentTypeError(f"{text} is not a number of seconds")
    return value


def positive_seconds(text):
    """A number of seconds above 0."""
    value = seconds(text)
    if value == 0:
        raise argparse.ArgumentTypeError("it must be longer than 0 seconds")
    return value


def count(text):
    """A number of repetitions, 0 or more."""
    value = int(text)
    if value < 0:
        raise argparse.ArgumentTypeError(f"{text} is below 0")
    return value
