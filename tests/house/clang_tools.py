#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""clang_tools.py format | tidy BUILD_FOLDER: holds every C++ file against .clang-format or .clang-tidy."""

import json
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from project_files import ROOT, cpp_files, shown


def check_format():
    files = [str(path) for path in cpp_files()]
    return subprocess.run(["clang-format", "--dry-run", "-Werror", *files], cwd=ROOT).returncode


def compiled_files(build):
    """The sources that users run and that this build compiles; what it generates is not ours to mend."""
    commands = json.loads((Path(build) / "compile_commands.json").read_text("utf-8"))
    names = {Path(command["file"]) for command in commands}
    return sorted(path for path in cpp_files(("src", "tools", "bench")) if path in names)


def check_tidy(build):
    def tidy(path):
        run = subprocess.run(["clang-tidy", "-p", build, "--quiet", str(path)], cwd=ROOT, text=True,
                             stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        return run.returncode, path, run.stdout

    failed = 0
    with ThreadPoolExecutor(max_workers=2) as workers:
        for code, path, output in workers.map(tidy, compiled_files(build)):
            if code != 0:
                failed += 1
                print(f"{shown(path)}:\n{output}")
    print(f"{failed} files with findings")
    return 1 if failed else 0


def main():
    if sys.argv[1:] == ["format"]:
        return check_format()
    if len(sys.argv) == 3 and sys.argv[1] == "tidy":
        return check_tidy(sys.argv[2])
    print(__doc__, file=sys.stderr)
    return 2


if __name__ == "__main__":
    sys.exit(main())
