# SPDX-License-Identifier: GPL-3.0-or-later
"""The private desktop of one repetition.

It neither sees nor affects the user's session: it has an X server on a display protected by a cookie, a window manager,
a message bus and an empty home. No repetition finds anything left by another.
"""

import os
import random
import select
import shutil
import subprocess
import sys
import tempfile
import time
import uuid
from dataclasses import dataclass, field
from pathlib import Path

from . import processes
from .errors import MeasuringError

PROGRAM = "program"
SERVER = "server"
MANAGER = "manager"
SERVICES = "services"
HELPER = "helper"

_SCREEN = "1920x1080x24"
_TAKEN_OVER = ("PATH", "LD_LIBRARY_PATH", "TERM", "USER", "LOGNAME")
_SECONDS_TO_START = 10.0


@dataclass(frozen=True)
class DesktopOptions:
    """Options of a desktop."""

    language: str = "C.UTF-8"
    zone: str = "Asia/Tokyo"
    environment: dict = field(default_factory=dict)  # in addition to the desktop's own
    home_template: Path | None = None  # copied to the home before anything starts
    manager: tuple = ("openbox", "--sm-disable")  # the window manager's command
    keep: bool = False  # keeps the home and prints its path


class Desktop:
    """A context manager: the desktop runs inside it, and is removed completely afterwards."""

    def __init__(self, options):
        self._options = options
        self._mark = uuid.uuid4().hex
        self._children = []
        self._outputs = {}
        self.folder = None
        self.environment = {}
        self._bus = None

    def __enter__(self):
        try:
            self.folder = Path(tempfile.mkdtemp(prefix="tickwell-bench."))
            self._furnish()
            self._start_server()
            self._start_bus()
            self._start_manager()
        except BaseException:
            self._close()
            raise
        return self

    def __exit__(self, *_):
        self._close()

    @property
    def home(self):
        """The home folder."""
        return self.folder / "home"

    def start(self, role, command, **options):
        """Starts a process, which is ended with the desktop; returns its Popen. `options` are passed to Popen."""
        output = options.pop("stdout", None) or self._output(role)
        try:
            child = subprocess.Popen(command, env=self._environment_of(role), stdin=subprocess.DEVNULL,
                                     stdout=output, stderr=self._output(role), start_new_session=True,
                                     cwd=self.home, **options)
        except OSError as error:
            raise MeasuringError(f"cannot start {command[0]}: {error.strerror}") from error
        self._children.append(child)
        return child

    def run(self, command, seconds=60.0):
        """Runs a helper to its end; returns its output."""
        try:
            done = subprocess.run(command, env=self._environment_of(HELPER), stdin=subprocess.DEVNULL,
                                  capture_output=True, text=True, timeout=seconds, cwd=self.home, check=False)
        except (OSError, subprocess.TimeoutExpired) as error:
            raise MeasuringError(f"{command[0]}: {error}") from error
        if done.returncode != 0:
            raise MeasuringError(f"{command[0]} ended with {done.returncode}: {done.stdout}{done.stderr}")
        return done.stdout

    def pids(self, role):
        """The running processes of a role and their descendants; the bus itself is not a service."""
        own = {self._bus.pid} if self._bus else set()
        return [pid for pid in processes.marked(self._mark_of(role)) if pid not in own]

    def last_words(self, role):
        """The last output of a role's processes."""
        return (self.folder / f"{role}.log").read_text(errors="replace")[-600:].strip()

    def _mark_of(self, role):
        return f"{self._mark}.{role}"

    def _environment_of(self, role):
        return {**self.environment, processes.MARK_VARIABLE: self._mark_of(role)}

    def _output(self, role):
        if role not in self._outputs:
            self._outputs[role] = open(self.folder / f"{role}.log", "wb")
        return self._outputs[role]

    def _furnish(self):
        if self._options.home_template:
            shutil.copytree(self._options.home_template, self.home, symlinks=True)
        runtime = self.folder / "run"
        temporary = self.folder / "tmp"
        for place in (runtime, temporary):
            place.mkdir(mode=0o700)
        places = {"XDG_CONFIG_HOME": ".config", "XDG_DATA_HOME": ".local/share", "XDG_CACHE_HOME": ".cache",
                  "XDG_STATE_HOME": ".local/state"}
        self.environment = {name: os.environ[name] for name in _TAKEN_OVER if name in os.environ}
        for name, place in places.items():
            (self.home / place).mkdir(parents=True, exist_ok=True)
            self.environment[name] = str(self.home / place)
        self.environment.update(HOME=str(self.home), XDG_RUNTIME_DIR=str(runtime), TMPDIR=str(temporary),
                                XDG_SESSION_TYPE="x11", LANG=self._options.language, TZ=self._options.zone,
                                XAUTHORITY=str(self.folder / "xauthority"))
        self.environment.update(self._options.environment)

    def _start_server(self):
        number = _free_display()
        self.environment["DISPLAY"] = f":{number}"
        cookie = uuid.uuid4().hex
        self.run(["xauth", "-q", "-f", self.environment["XAUTHORITY"], "add", f":{number}", ".", cookie])
        reader, writer = os.pipe()
        with open(reader, "rb", buffering=0) as ready:
            try:
                self.start(SERVER, ["Xvfb", f":{number}", "-displayfd", str(writer), "-auth",
                                    self.environment["XAUTHORITY"], "-screen", "0", _SCREEN, "-dpi", "96",
                                    "-nolisten", "tcp", "-noreset"], pass_fds=(writer,))
            finally:
                os.close(writer)
            if not _first_line(ready):
                raise MeasuringError(f"Xvfb did not start: {self.last_words(SERVER)}")

    def _start_bus(self):
        socket = Path(self.environment["XDG_RUNTIME_DIR"]) / "bus"
        self._bus = self.start(SERVICES, ["dbus-daemon", "--session", "--nofork", "--nopidfile",
                                          f"--address=unix:path={socket}", "--print-address=1"],
                               stdout=subprocess.PIPE, bufsize=0)
        address = _first_line(self._bus.stdout)
        if not address:
            raise MeasuringError(f"dbus-daemon did not start: {self.last_words(SERVICES)}")
        # The machine's system bus is replaced too, because its battery events would wake the program.
        self.environment.update(DBUS_SESSION_BUS_ADDRESS=address, DBUS_SYSTEM_BUS_ADDRESS=address)

    def _start_manager(self):
        command = self._options.manager
        self.start(MANAGER, list(command))
        deadline = time.monotonic() + _SECONDS_TO_START
        while "window id" not in self.run(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"]):
            if time.monotonic() > deadline:
                raise MeasuringError(f"{command[0]} did not start: {self.last_words(MANAGER)}")
            time.sleep(0.05)
        time.sleep(0.5)  # it has announced itself but is still loading its theme

    def _close(self):
        """Ends all processes, the server last, so that the others can disconnect."""
        try:
            processes.end_marked([self._mark_of(role) for role in (PROGRAM, HELPER, SERVICES, MANAGER)])
            processes.end_marked([self._mark_of(SERVER)])
        finally:
            for child in self._children:
                child.kill()  # needed only for a process that removed its mark
                child.wait()
                if child.stdout:
                    child.stdout.close()
            for output in self._outputs.values():
                output.close()
            if self._options.keep:
                print("kept:", self.folder, file=sys.stderr)
            elif self.folder:
                shutil.rmtree(self.folder, ignore_errors=True)


def _free_display():
    """A display number far from those that users and other tools use."""
    while True:
        number = random.randint(2000, 9999)
        if not Path(f"/tmp/.X11-unix/X{number}").exists() and not Path(f"/tmp/.X{number}-lock").exists():
            return number


def _first_line(pipe):
    """The first line from an unbuffered pipe, without its line feed; empty if it does not arrive in time."""
    line = b""
    deadline = time.monotonic() + _SECONDS_TO_START
    while not line.endswith(b"\n"):
        readable, _, _ = select.select([pipe], [], [], max(0.0, deadline - time.monotonic()))
        piece = pipe.read(1) if readable else b""
        if not piece:
            return ""
        line += piece
    return line.decode().strip()
