# SPDX-License-Identifier: GPL-3.0-or-later
"""One program, started once on a desktop of its own, and what was measured of it."""

import time
from collections.abc import Callable
from dataclasses import dataclass, field
from pathlib import Path

from . import processes
from .desktop import MANAGER, PROGRAM, SERVER, SERVICES, Desktop, DesktopOptions
from .errors import MeasuringError
from .window_watch import StartWatch, watch_repaints


@dataclass(frozen=True)
class Subject:
    """A program to measure. `command_in` is given an empty folder of the repetition, returns the command."""

    label: str
    command_in: Callable[[Path], list]


@dataclass(frozen=True)
class Plan:
    """How a repetition goes, in seconds from the program's start."""

    xwatch: Path
    settle: float = 20.0  # until memory is read and the window begins over which activity is counted
    window: float = 60.0
    repaints: float = 10.0  # how long repaints are counted after that window; 0 for not at all
    start_timeout: float = 30.0
    smallest: tuple = (40, 16)  # width and height of the smallest window that counts as the program's
    hook: str = ""  # shell command on the same desktop
    hook_at: float = 5.0
    desktop: DesktopOptions = field(default_factory=DesktopOptions)


@dataclass(frozen=True)
class StartFigures:
    """A start-up. Milliseconds from the start of the process."""

    mapped_ms: float
    painted_ms: float
    size: str
    window_class: str


@dataclass(frozen=True)
class WindowFigures:
    """A program that stands there, over the plan's window."""

    rss_kib: int
    pss_kib: int
    uss_kib: int
    anonymous_kib: int
    peak_rss_kib: int
    rss_growth_kib: int  # over the window
    cpu_ms_per_min: float
    cpu_tick_ms_per_min: float
    voluntary_per_s: float
    involuntary_per_s: float
    written_kib_per_min: float
    server_cpu_ms_per_min: float  # the X server draws for the program
    manager_cpu_ms_per_min: float
    services_cpu_ms_per_min: float  # what the program's calls on the bus brought to life
    threads: int
    process_names: list
    service_names: list
    repaints_per_s: float | None = None
    rectangles_per_s: float | None = None
    kilopixels_per_s: float | None = None


def measure_start(subject, plan):
    """Starts the program, waits until it is painted, and ends it."""
    with Desktop(plan.desktop) as desktop:
        return _Run(desktop, subject, plan).start_figures


def measure_window(subject, plan):
    """Starts the program, lets it settle and looks at it for a while: (StartFigures, WindowFigures)."""
    with Desktop(plan.desktop) as desktop:
        run = _Run(desktop, subject, plan)
        run.settle()
        return run.start_figures, run.window_figures()


@dataclass(frozen=True)
class _Reading:
    """The activity of each role at one moment."""

    at: float
    program: processes.Activity
    server: processes.Activity
    manager: processes.Activity
    services: processes.Activity


class _Run:
    """A program that runs on a desktop; its first window is there."""

    def __init__(self, desktop, subject, plan):
        self._desktop = desktop
        self._subject = subject
        self._plan = plan
        folder = desktop.folder / "subject"
        folder.mkdir()
        command = subject.command_in(folder)
        watch = StartWatch(desktop, plan.xwatch, plan.smallest, plan.start_timeout)
        self._started_at = time.monotonic()
        self._process = desktop.start(PROGRAM, command)
        try:
            first = watch.wait()
        except MeasuringError as error:
            raise self._failure(str(error)) from error
        self.start_figures = StartFigures(
            mapped_ms=1000 * (first.mapped_at - self._started_at),
            painted_ms=1000 * (first.painted_at - self._started_at),
            size=first.size, window_class=first.window_class)

    def settle(self):
        """Waits until the plan's window begins."""
        if self._plan.hook:
            self._wait_until(self._plan.hook_at)
            self._desktop.run(["sh", "-c", self._plan.hook])
        self._wait_until(self._plan.settle)

    def window_figures(self):
        """Counts over the plan's window."""
        memory = self._memory()
        begin = self._read()
        time.sleep(self._plan.window)
        end = self._read()
        memory_after = self._memory()
        figures = {
            "rss_kib": memory.rss_kib, "pss_kib": memory.pss_kib, "uss_kib": memory.uss_kib,
            "anonymous_kib": memory.anonymous_kib, "peak_rss_kib": memory_after.peak_rss_kib,
            "rss_growth_kib": memory_after.rss_kib - memory.rss_kib, "threads": end.program.threads,
            "process_names": self._names(PROGRAM), "service_names": self._names(SERVICES)}
        figures.update(_rates(begin, end))
        if self._plan.repaints > 0:
            repaints = watch_repaints(self._desktop, self._plan.xwatch, self._plan.repaints)
            figures.update(repaints_per_s=repaints.bursts, rectangles_per_s=repaints.rectangles,
                           kilopixels_per_s=repaints.kilopixels)
        if not self._desktop.pids(PROGRAM):
            raise self._failure("it ended before its time")
        return WindowFigures(**figures)

    def _wait_until(self, seconds):
        time.sleep(max(0.0, self._started_at + seconds - time.monotonic()))

    def _memory(self):
        return processes.memory_of(self._desktop.pids(PROGRAM))

    def _names(self, role):
        return sorted(map(processes.name_of, self._desktop.pids(role)))

    def _read(self):
        roles = {role: self._desktop.pids(role) for role in (PROGRAM, SERVER, MANAGER, SERVICES)}
        at = time.monotonic()  # finding the processes takes longer than reading them
        return _Reading(at=at, **{role: processes.activity_of(pids) for role, pids in roles.items()})

    def _failure(self, what):
        code = self._process.poll()
        state = "still runs" if code is None else f"ended with {code}"
        printed = self._desktop.last_words(PROGRAM) or "nothing"
        return MeasuringError(f"{self._subject.label}: {what} (the program {state}; it printed: {printed})")


def _rates(begin, end):
    """The figures that are differences of two readings."""
    seconds = end.at - begin.at
    per_minute = 60 / seconds

    def cpu(role):
        return (getattr(end, role).cpu_ns - getattr(begin, role).cpu_ns) / 1e6 * per_minute

    def counted(name):
        return getattr(end.program, name) - getattr(begin.program, name)

    return {
        "cpu_ms_per_min": cpu(PROGRAM),
        "cpu_tick_ms_per_min": counted("cpu_tick_ms") * per_minute,
        "voluntary_per_s": counted("voluntary_switches") / seconds,
        "involuntary_per_s": counted("involuntary_switches") / seconds,
        "written_kib_per_min": counted("written_bytes") / 1024 * per_minute,
        "server_cpu_ms_per_min": cpu(SERVER),
        "manager_cpu_ms_per_min": cpu(MANAGER),
        "services_cpu_ms_per_min": cpu(SERVICES),
    }
