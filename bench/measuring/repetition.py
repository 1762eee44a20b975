# SPDX-License-Identifier: GPL-3.0-or-later
"""One program, started once on a desktop of its own, and what was measured of it."""

import time
from collections.abc import Callable
from dataclasses import asdict, dataclass, field, replace
from pathlib import Path

from . import processes
from .desktop import HELPER, MANAGER, PROGRAM, SERVER, SERVICES, Desktop, DesktopOptions
from .errors import MeasuringError
from .window_watch import RepaintWatch, StartWatch

_AFTER_HOOK = 4.0  # seconds: what goes with the menus and windows that a hook used has gone by then


def _leave_empty(_home):
    """Of a program that needs no settings."""


@dataclass(frozen=True)
class Subject:
    """A program to measure, and how it is brought to what it shall do."""

    label: str
    command_in: Callable[[Path], list]  # given an empty folder of the repetition, returns the command
    furnish: Callable[[Path], None] = _leave_empty  # writes the program's settings into the home it is given
    beside: tuple = ()  # programs that stand on the desktop before it starts; they are not counted
    hook: str = ""  # shell command on the same desktop
    hook_at: float = 5.0  # seconds from the program's start
    smallest: tuple = (40, 16)  # width and height of the smallest window that counts as the program's


@dataclass(frozen=True)
class Plan:
    """How a repetition goes, in seconds from the program's start."""

    xwatch: Path
    settle: float = 20.0  # until memory is read and the window begins over which activity is counted
    window: float = 60.0
    repaints: float = 10.0  # how long repaints are counted after that window; 0 for not at all
    start_timeout: float = 30.0
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
    with Run(subject, plan) as run:
        return run.start_figures


def measure_window(subject, plan):
    """Starts the program, lets it settle and looks at it for a while: (StartFigures, WindowFigures)."""
    with Run(subject, plan) as run:
        run.settle()
        run.begin_window()
        time.sleep(plan.window)
        figures = run.end_window()
        if plan.repaints > 0:
            figures = replace(figures, **asdict(run.begin_repaints().wait()))
        return run.start_figures, figures


@dataclass(frozen=True)
class _Reading:
    """The activity of each role at one moment."""

    at: float
    program: processes.Activity
    server: processes.Activity
    manager: processes.Activity
    services: processes.Activity


class Run:
    """A context: a program on a desktop of its own, from its first painted window until the context is left."""

    def __init__(self, subject, plan):
        self._subject = subject
        self._plan = plan
        self._desktop = Desktop(plan.desktop)
        self._started_at = 0.0
        self._process = None
        self._begin = None  # (memory, _Reading) of the window that is open
        self.start_figures = None

    def __enter__(self):
        self._desktop.__enter__()
        try:
            self._start()
        except BaseException:
            self._desktop.__exit__()
            raise
        return self

    def __exit__(self, *trouble):
        self._desktop.__exit__(*trouble)

    def settle(self):
        """Waits until the plan's window may begin; the hook has run by then."""
        if self._subject.hook:
            self.wait_until(self._subject.hook_at)
            self.act(self._subject.hook)
            time.sleep(_AFTER_HOOK)
        self.wait_until(self._plan.settle)

    def wait_until(self, seconds):
        """Waits until so many seconds after the program's start."""
        time.sleep(max(0.0, self._started_at + seconds - time.monotonic()))

    def act(self, command):
        """Runs a shell command on the same desktop."""
        try:
            self._desktop.run(["sh", "-ec", command])
        except MeasuringError as error:
            raise self._failure(str(error)) from error

    def memory(self):
        """What the program holds at this moment."""
        return processes.memory_of(self._desktop.pids(PROGRAM))

    def begin_window(self):
        """From here on activity is counted."""
        self._begin = self.memory(), self._read()

    def end_window(self):
        """The figures since begin_window."""
        memory, begin = self._begin
        end = self._read()
        after = self.memory()
        if not self._desktop.pids(PROGRAM):
            raise self._failure("it ended before its time")
        return WindowFigures(
            rss_kib=memory.rss_kib, pss_kib=memory.pss_kib, uss_kib=memory.uss_kib,
            anonymous_kib=memory.anonymous_kib, peak_rss_kib=after.peak_rss_kib,
            rss_growth_kib=after.rss_kib - memory.rss_kib, threads=end.program.threads,
            process_names=self._names(PROGRAM), service_names=self._names(SERVICES), **_rates(begin, end))

    def begin_repaints(self):
        """From here on repaints are counted, for as long as the plan says; returns who counts them."""
        return RepaintWatch(self._desktop, self._plan.xwatch, self._plan.repaints)

    def _start(self):
        folder = self._desktop.folder / "subject"
        folder.mkdir()
        self._subject.furnish(self._desktop.home)
        command = self._subject.command_in(folder)
        for neighbour in self._subject.beside:
            self._desktop.start(HELPER, [neighbour])
            self._desktop.run(["xdotool", "search", "--sync", "--onlyvisible", "--class", neighbour])
        watch = StartWatch(self._desktop, self._plan.xwatch, self._subject.smallest, self._plan.start_timeout)
        self._started_at = time.monotonic()
        self._process = self._desktop.start(PROGRAM, command)
        try:
            first = watch.wait()
        except MeasuringError as error:
            raise self._failure(str(error)) from error
        self.start_figures = StartFigures(
            mapped_ms=1000 * (first.mapped_at - self._started_at),
            painted_ms=1000 * (first.painted_at - self._started_at),
            size=first.size, window_class=first.window_class)

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
