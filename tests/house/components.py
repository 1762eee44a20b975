#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""components.py BUILD_FOLDER: checks that each component links exactly what its files include.

CMake knows the components and their links; this test compares them with the includes.
"""

import re
import sys
import unittest
from functools import cache
from pathlib import Path

from project_files import ROOT, cpp_files, shown

INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)
QT_INCLUDE = re.compile(r"^\s*#\s*include\s*<(Q[A-Za-z0-9]+)>", re.MULTILINE)
WINDOWS = {"Qt6::Gui", "Qt6::Widgets"}

# The component X_windows contains the windows of the component X, which only computes.
OF_WINDOWS = "_windows"
# These paint or need the desktop, and have no part without windows.
PAINT_THEMSELVES = {"lines", "controls", "platform_desktop", "print_helper"}

# Only the program itself, which connects all components, links the platform.
USES_THE_PLATFORM = re.compile(r"app|platform_")


class Component:
    def __init__(self, line):
        self.name, folder, sources, links = line.split("|")
        self.folder = ROOT / folder
        self.units = {self.folder / Path(source).stem for source in sources.split(";") if "/" not in source}
        self.links = set(links.split(";"))
        self.needs = {link.removeprefix("Tickwell::") for link in self.links if link.startswith("Tickwell::")}


COMPONENTS = {}
UNITS = {}  # folder/stem: component


def unit_of(path):
    return path.parent / path.stem


@cache
def reach(name):
    """The names of the components that it links, directly or indirectly."""
    needs = COMPONENTS[name].needs
    return frozenset(needs).union(*(reach(each) for each in needs))


@cache
def all_links(name):
    return frozenset(COMPONENTS[name].links).union(*(all_links(each) for each in COMPONENTS[name].needs))


def included_files(path):
    return [ROOT / "src" / name for name in INCLUDE.findall(path.read_text("utf-8")) if (ROOT / "src" / name).exists()]


@cache
def with_all_headers(path):
    """The file, and all files of this project that it includes, directly or indirectly."""
    files, new = {path}, [path]
    while new:
        further = [each for each in included_files(new.pop()) if each not in files]
        files.update(further)
        new.extend(further)
    return files


@cache
def is_of_windows(qt_class):
    roots = [Path("/usr/include/x86_64-linux-gnu/qt6"), *Path("/usr/include").glob("*/qt6")]
    return any((root / module / qt_class).exists() for root in roots for module in ("QtGui", "QtWidgets"))


class Components(unittest.TestCase):
    def test_every_source_belongs_to_one(self):
        self.assertTrue(UNITS)
        alone = {"main.cpp", "cups_queue.cpp"}  # of the programs, not of a component
        wrong = [shown(path) for path in cpp_files(("src",))
                 if path.suffix == ".cpp" and unit_of(path) not in UNITS and path.name not in alone]
        self.assertEqual(wrong, [])

    def test_includes_follow_the_links(self):
        wrong = []
        for path in cpp_files(("src",)):
            component = UNITS.get(unit_of(path))
            if component is None:
                continue
            for file in with_all_headers(path):
                other = UNITS.get(unit_of(file))
                if other not in (None, component) and other not in reach(component):
                    wrong.append(f"{shown(path)} of {component} needs {shown(file)} of {other}")
        self.assertEqual(wrong, [])

    def test_every_link_is_needed(self):
        wrong = []
        for component in COMPONENTS.values():
            files = {file for unit in component.units for path in unit.parent.glob(f"{unit.name}.*")
                     for file in with_all_headers(path)}
            wrong += [f"{component.name} links {link}" for link in component.needs
                      if not any(file.is_relative_to(COMPONENTS[link].folder) for file in files)]
        self.assertEqual(wrong, [])

    def test_no_unit_includes_itself_indirectly(self):
        def headers(unit):
            return {unit_of(file) for suffix in (".h", ".cpp") if (path := unit.with_name(unit.name + suffix)).exists()
                    for file in included_files(path)} - {unit}

        done = set()

        def visit(unit, way):
            self.assertNotIn(unit, way, [each.name for each in way])
            if unit not in done:
                for other in headers(unit):
                    visit(other, [*way, unit])
                done.add(unit)

        for path in cpp_files(("src",)):
            visit(unit_of(path), [])

    def test_computing_components_do_not_use_windows(self):
        wrong = []
        for component in COMPONENTS.values():
            if component.name.endswith(OF_WINDOWS) or component.name in PAINT_THEMSELVES:
                continue
            wrong += [f"{component.name} links {link}" for link in all_links(component.name) & WINDOWS]
            wrong += [f"{shown(file)} includes {name}" for unit in component.units for suffix in (".h", ".cpp")
                      if (path := unit.with_name(unit.name + suffix)).exists() for file in with_all_headers(path)
                      for name in QT_INCLUDE.findall(file.read_text("utf-8")) if is_of_windows(name)]
        self.assertEqual(wrong, [])

    def test_only_the_program_links_the_platform(self):
        wrong = [f"{component.name} links {link}" for component in COMPONENTS.values() for link in component.needs
                 if link.startswith("platform_") and not USES_THE_PLATFORM.match(component.name)]
        self.assertEqual(wrong, [])


if __name__ == "__main__":
    for text in (Path(sys.argv.pop(1)) / "components.txt").read_text("utf-8").splitlines():
        read = Component(text)
        COMPONENTS[read.name] = read
        UNITS.update(dict.fromkeys(read.units, read.name))
    unittest.main()
