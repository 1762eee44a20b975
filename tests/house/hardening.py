#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""hardening.py BUILD_FOLDER PROGRAM...: checks that programs are hardened like those of Debian. Sources are
checked by their compile commands, programs by hardening-check."""

import json
import subprocess
import sys
from pathlib import Path

from project_files import ROOT, shown

FLAGS = ("-D_FORTIFY_SOURCE=2", "-fstack-protector-strong", "-fstack-clash-protection", "-fcf-protection",
         "-Werror=format-security")

# Linking removes the mark of cf-protection, because the distribution's start-up code lacks it. In a program in which
# the size of every copy is known, no call is fortified; hardening-check cannot distinguish that from a missing flag.
CHECK = ("hardening-check", "--verbose", "--nocfprotection")
NOTHING_TO_FORTIFY = {"tickwell-cd", "tickwell-ical", "tickwell-print", "tickwell-sound"}


def soft_sources(build):
    """The program's sources that are compiled without one of the flags."""
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
