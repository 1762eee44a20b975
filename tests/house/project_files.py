# SPDX-License-Identifier: GPL-3.0-or-later
"""The project's files, as far as the house rules need them."""

from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
CODE_FOLDERS = ("src", "tests", "tools", "bench")


def code_files(*suffixes, folders=CODE_FOLDERS):
    """All files below these folders with one of these suffixes, sorted."""
    found = []
    for folder in folders:
        found += [path for path in (ROOT / folder).rglob("*") if path.suffix in suffixes]
    return sorted(found)


def cpp_files(folders=CODE_FOLDERS):
    return code_files(".cpp", ".h", folders=folders)


def shown(path):
    return str(path.relative_to(ROOT))
