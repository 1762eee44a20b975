# SPDX-License-Identifier: GPL-3.0-or-later
"""One program, started once on a private desktop, and its measured figures."""

import time
from collections.abc import Callable
from dataclasses import asdict, dataclass, field, replace
from pathlib import Path

from . import processes
from .desktop import HELPER, MANAGER, PROGRAM, SERVER, SERVICES, Desktop, DesktopOptions
from .errors import MeasuringError
from .window_watch import RepaintWatch, StartWatch

_AFTER_HOOK = 4.0  # seconds until menus and windows that a hook used have released their memory


def _leave_empty(_home):
    """For programs that need no settings."""


@dataclass(frozen=True)
class Subject:
    """A program to measure, and how to bring it into the state to measure."""

    label: str
    command_in: Callable[[Path], list]  # gets an empty folder of the repetition, returns the command
    furnish: Callable[[Path], None] = _leave_empty  # writes the program's settings into a home
    beside: tuple = ()  # programs that already run on the desktop; they are not counted
    hook: str = ""  # shell command to run on the same desktop
    hook_at: float = 5.0  # seconds from the program's start
    smallest: tuple = (40, 16)  # (width, height) of the smallest window that counts as the program's


@dataclass(frozen=True)
class Plan:
    """The course of a repetition. Times are in seconds from the program's start."""

    xwatch: Path
    settle: float = 20.0  # when memory is read and activity starts to be counted
    window: float = 60.0
    repaints: float = 10.0  # how long repaints are counted after that window; 0 for not at all
    start_timeout: float = 30.0
    desktop: DesktopOptions = field(default_factory=DesktopOptions)


@dataclass(frozen=True)
class StartFigures:
    """A start-up, in milliseconds from the start of the process."""

    mapped_ms: float
    painted_ms: float
    size: str
    window_class: str


@dataclass(frozen=True)
class WindowFigures:
    """A running program during the plan's window of time."""

    rss_kib: int
    pss_kib: int
    uss_kib: int
    anonymous_kib: int
    peak_rss_kib: int
    rss_growth_kib: int  # during the window
    cpu_ms_per_min: float
    cpu_tick_ms_per_min: float
    voluntary_per_s: float
    involuntary_per_s: float
    written_kib_per_min: float
    server_cpu_ms_per_min: float  # of the X server, for drawing the program's window
    manager_cpu_ms_per_min: float
    services_cpu_ms_per_min: float  # of services that the program's D-Bus calls started
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
    """Starts the program, lets it settle and measures it for a while; returns (StartFigures, WindowFigures)."""
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
    """A context manager: a program on a private desktop, from its first painted window until the context is left."""

    def __init__(self, subject, plan):
        self._subject = subject
        self._plan = plan
        self._desktop = Desktop(plan.desktop)
        self._started_at = 0.0
        self._process = None
        self._begin = None  # (memory, _Reading) at the start of the current window of time
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
        """Runs the hook and waits until the plan's window of time starts."""
        if self._subject.hook:
            self.wait_until(self._subject.hook_at)
            self.act(self._subject.hook)
            time.sleep(_AFTER_HOOK)
        self.wait_until(self._plan.settle)

    def wait_until(self, seconds):
        """Waits until `seconds` after the program's start."""
        time.sleep(max(0.0, self._started_at + seconds - time.monotonic()))

    def act(self, command):
        """Runs a shell command on the same desktop."""
        try:
            self._desktop.run(["sh", "-ec", command])
        except MeasuringError as error:
            raise self._failure(str(error)) from error

    def memory(self):
        """The program's current memory."""
        return processes.memory_of(self._desktop.pids(PROGRAM))

    def begin_window(self):
        """Starts counting activity."""
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
        """Starts counting repaints for as long as the plan says; returns the watch."""
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
        at = time.monotonic()  # read after the slow search for processes
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
