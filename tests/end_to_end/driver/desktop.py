# SPDX-License-Identifier: GPL-3.0-or-later
"""A private desktop for a test: screen, message buses, window manager, home."""

import os
import shutil
import tempfile
from contextlib import ExitStack
from pathlib import Path

from driver import dbus_calls, pictures, processes
from driver.accessibility_bus import AccessibilityBus
from driver.hand import Hand
from driver.program import App, Program, ProgramEnded
from driver.waiting import LineReader, wait_for
from driver.x_windows import XWindows

# The only variables that a session inherits from the environment of the tests.
INHERITED = ("PATH", "LD_LIBRARY_PATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS")


class Session:
    """Runs from its construction until `close`, which ends all its processes and removes its files. It shares nothing
    with the outer desktop or with other sessions, so several can run at once."""

    def __init__(self, window_manager=("openbox",), screen="1280x1024x24", dpi=96, environment=None):
        """`window_manager`: its command, or None for none. `environment`: additional variables for all programs."""
        self.programs = []  # the ones that the test started, in order
        self.services = {}  # the screen "Xvfb" and the bus "dbus-daemon", for tests that end them
        self._logs = 0
        with ExitStack() as closing:  # also cleans up if a later step fails
            self.directory = Path(tempfile.mkdtemp(prefix="tickwell-"))
            closing.callback(shutil.rmtree, self.directory)
            closing.callback(processes.end_marked, self.directory)
            self.home = self.directory / "home"
            self.environment = self._make_environment() | (environment or {})
            self._open(closing, window_manager, screen, dpi)
            self._closing = closing.pop_all()

    def __enter__(self):
        return self

    def __exit__(self, *trouble):
        self.close()

    def close(self):
        """Ends the session. May be called more than once."""
        self._closing.close()

    # Programs

    def spawn(self, command, environment=None, cwd=None, pass_fds=()):
        """Starts a program and returns immediately. The program is ended with the session at the latest."""
        program = self._program(command, environment, cwd, pass_fds)
        self._closing.callback(program.stop)
        self.programs.append(program)
        return program

    def start(self, command, **options):
        """Starts a program, waits until it is on the accessibility bus, and returns its root node."""
        return self.wait_app(self.spawn(command, **options))

    def wait_app(self, program):
        """Waits for the root node of a program that was spawned."""
        def node():
            program.check_running()
            return self._accessibility.application(program.pid)
        top = wait_for(node, f"{program.command[0]} on the accessibility bus")
        return App(top, program, self._accessibility.popups)

    # The screen

    def grab(self, area=None):
        """A picture of the screen or of an area (x, y, width, height)."""
        return pictures.grab(self.display, area)

    def screenshot(self, path, area=None):
        """Saves such a picture as a file."""
        self.grab(area).save(path)

    # Set-up

    def _make_environment(self):
        run, temporary = self.directory / "run", self.directory / "tmp"
        for folder in (run, temporary, self.home / ".config"):
            folder.mkdir(mode=0o700, parents=True)
        own = {
            "HOME": self.home,
            "XDG_CONFIG_HOME": self.home / ".config", "XDG_CACHE_HOME": self.home / ".cache",
            "XDG_DATA_HOME": self.home / ".local/share", "XDG_STATE_HOME": self.home / ".local/state",
            "XDG_RUNTIME_DIR": run, "TMPDIR": temporary, processes.MARK: self.directory,
            "LANG": "C.UTF-8", "TZ": "Asia/Tokyo", "XDG_SESSION_TYPE": "x11", "QT_QPA_PLATFORM": "xcb",
            "SDL_AUDIODRIVER": "dummy",  # silent sound output; a test that listens starts a sound server
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",  # otherwise only with a running screen reader
        }
        inherited = {name: os.environ[name] for name in INHERITED if name in os.environ}
        return inherited | {name: str(value) for name, value in own.items()}

    def _open(self, closing, window_manager, screen, dpi):
        self.display = self._open_screen(closing, screen, dpi)
        self.environment["DISPLAY"] = self.display
        address = self._announced(closing, lambda fd: [
            "dbus-daemon", "--session", "--nofork", "--nopidfile", f"--print-address={fd}",
            f"--address=unix:dir={self.directory / 'run'}"])
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = address
        self.windows = XWindows(self.display)
        closing.callback(self.windows.close)
        if window_manager:  # starts in parallel with the buses
            manager = self._program(window_manager)
            closing.callback(manager.stop)
        session_bus = dbus_calls.connect(address)
        closing.callback(dbus_calls.close, session_bus)
        self._accessibility = AccessibilityBus(session_bus)
        closing.callback(self._accessibility.close)
        if window_manager:
            def in_charge():
                manager.check_running()
                return self.windows.window_manager_answers()
            wait_for(in_charge, "the window manager")
        self.hand = self._make_hand(closing)

    def _make_hand(self, _closing):
        return Hand(self.environment)

    def _open_screen(self, closing, screen, dpi):
        """Starts the X server; returns its display."""
        return ":" + self._announced(closing, lambda fd: [
            "Xvfb", "-displayfd", fd, "-screen", "0", screen, "-dpi", dpi, "-nolisten", "tcp", "-noreset",
            "-ac"])

    def _announced(self, closing, command):
        """Starts a service that writes its address to a pipe when it is ready; returns the address."""
        read_end, write_end = os.pipe()
        with os.fdopen(read_end, "rb") as pipe:
            try:
                service = self._program(command(write_end), pass_fds=(write_end,))
            finally:
                os.close(write_end)
            closing.callback(service.stop)
            self.services[service.command[0]] = service
            try:
                return LineReader(pipe.fileno()).read_line(f"the address of {service.command[0]}")
            except EOFError as error:
                raise ProgramEnded(f"{service.command[0]} did not come up:\n{service.output()}") from error

    def _program(self, command, environment=None, cwd=None, pass_fds=()):
        self._logs += 1
        log = self.directory / f"{self._logs:02}-{Path(command[0]).name}.log"
        return Program(command, self.environment | (environment or {}), log, cwd, pass_fds)
