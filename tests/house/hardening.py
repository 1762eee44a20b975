#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""hardening.py BUILD_FOLDER PROGRAM...: whether programs are hardened as the distribution hardens its own. Each source is
looked at by its command, each program by the distribution's hardening-check."""

import json
import subprocess
import sys
from pathlib import Path

from project_files import ROOT, shown

FLAGS = ("-D_FORTIFY_SOURCE=2", "-fstack-protector-strong", "-fstack-clash-protection", "-fcf-protection",
         "-Werror=format-security")

# The mark of cf-protection is lost by linking: the distribution's own start-up code does not have it. A program that
# knows the sizes of all that it copies has no function to fortify, and the check cannot tell that from carelessness.
CHECK = ("hardening-check", "--verbose", "--nocfprotection")
NOTHING_TO_FORTIFY = {"tickwell-cd", "tickwell-print"}


def soft_sources(build):
    """The sources for users that are compiled without one of the flags."""
    commands = json.loads((Path(build) / "compile_commands.json").read_text("utf-8"))
    return [f"{shown(Path(command['file']))} is compiled without {flag}"
            for command in commands if Path(command["file"]).is_relative_to(ROOT / "src")
            for flag in FLAGS if flag not in command["command"].split()]


def is_hard(program):
    options = ["--nofortify"] if Path(program).name in NOTHING_TO_FORTIFY else []
    return subprocess.run([*CHECK, *options, program]).returncode == 0


def main(build, *programs):
    soft = soft_sources(build)
    print("\n".join(soft), flush=True)
    checked = [is_hard(program) for program in programs]
    return 0 if checked and all(checked) and not soft else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
