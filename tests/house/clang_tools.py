#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Checks the C++ files against .clang-format and .clang-tidy.

    clang_tools.py format               every file
    clang_tools.py tidy BUILD_FOLDER    recently changed files: see LATELY
    clang_tools.py tidy-all BUILD_FOLDER
"""

import json
import re
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from project_files import ROOT, cpp_files, shown

LATELY = 12  # commits
MOST = 20  # files, each taking 15 s during a build; a commit that renames something can touch all files


def check_format():
    files = [str(path) for path in cpp_files()]
    return subprocess.run(["clang-format", "--dry-run", "-Werror", *files], cwd=ROOT).returncode


def compiled_files(build):
    """The sources of programs and tools that this build compiles; generated sources are excluded."""
    commands = json.loads((Path(build) / "compile_commands.json").read_text("utf-8"))
    names = {Path(command["file"]) for command in commands}
    return sorted(path for path in cpp_files(("src", "tools", "bench")) if path in names)


def git(*arguments):
    """The lines that git prints; none if it fails."""
    run = subprocess.run(["git", *arguments], cwd=ROOT, text=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    return run.stdout.splitlines() if run.returncode == 0 else []


def lately_changed():
    """The files not committed yet or changed by the last LATELY commits, the latest first; None if the history is too
    short."""
    if not git("rev-parse", "--verify", f"HEAD~{LATELY}"):
        return None
    changed = (git("diff", "--name-only", "HEAD") + git("ls-files", "--others", "--exclude-standard")
               + git("log", f"-{LATELY}", "--name-only", "--format="))
    return [ROOT / name for name in dict.fromkeys(changed) if name]


def shows(sources, header):
    """A source through which the header can be checked: its own, otherwise the first that includes it."""
    if header.with_suffix(".cpp") in sources:
        return header.with_suffix(".cpp")
    name = re.compile(rf'#include "([a-z_]+/)*{re.escape(header.parent.name)}/{re.escape(header.name)}"')
    return next((source for source in sources if name.search(source.read_text("utf-8"))), None)


def touched(sources):
    """The recently changed sources, and one source for each recently changed header, at most MOST."""
    changed = lately_changed()
    if changed is None:
        return sources
    looked_at = dict.fromkeys(shows(sources, path) if path.suffix == ".h" and path.exists() else path for path in changed)
    found = [path for path in looked_at if path in sources]
    if len(found) > MOST:
        print(f"{len(found) - MOST} more were changed: ctest --preset long -R tidy looks at all")
    return found[:MOST]


def check_tidy(build, sources):
    def tidy(path):
        run = subprocess.run(["clang-tidy", "-p", build, "--quiet", str(path)], cwd=ROOT, text=True,
                             stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        return run.returncode, path, run.stdout

    failed = 0
    with ThreadPoolExecutor(max_workers=2) as workers:
        for code, path, output in workers.map(tidy, sources):
            if code != 0:
                failed += 1
                print(f"{shown(path)}:\n{output}")
    print(f"{len(sources)} files looked at, {failed} with findings")
    return 1 if failed else 0


def main():
    if sys.argv[1:] == ["format"]:
        return check_format()
    if len(sys.argv) == 3 and sys.argv[1] == "tidy":
        return check_tidy(sys.argv[2], touched(compiled_files(sys.argv[2])))
    if len(sys.argv) == 3 and sys.argv[1] == "tidy-all":
        return check_tidy(sys.argv[2], compiled_files(sys.argv[2]))
    print(__doc__, file=sys.stderr)
    return 2


if __name__ == "__main__":
    sys.exit(main())
