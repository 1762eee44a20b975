# SPDX-License-Identifier: GPL-3.0-or-later
"""Starting Tickwell in a session, and reading its two lines."""

import os
import shutil
from pathlib import Path

from driver import settings_file
from driver.accessible_search import agrees
from driver.waiting import PATIENCE, TimedOut, wait_for

PROGRAM_VARIABLE = "TICKWELL_PROGRAM"
WINDOW = "Tickwell"
BOXES = ("alert message", "dialog")
SILENT = {"Notice": {"NoCdDrive": "False"}}
MASTERS = ("DayDate.mdb", "Help.hlp", *(f"TKW{number:02}.wav" for number in range(6)))


def program_path():
    """The path of the program under test."""
    path = Path(os.environ.get(PROGRAM_VARIABLE, ""))
    if not path.is_file():
        raise FileNotFoundError(f"environment variable {PROGRAM_VARIABLE} has to name the program to test")
    return path.absolute()


def make_folder(path, without=()):
    """Makes a program folder from the master files next to the program, except those in `without`; returns its path."""
    folder = Path(path)
    folder.mkdir(parents=True)
    for master in set(MASTERS).difference(without):
        # Copies contents only, so the copy is writable whatever the master's permissions.
        shutil.copyfile(program_path().parent / master, folder / master)
    return folder


def settings_path(session):
    return session.home / ".config/TKW2/TKW2.ini"


def write_settings(session, settings):
    """Writes settings {section: {key: value}} for the program's next start."""
    settings_file.write_settings(settings_path(session), settings)


def read_settings(session):
    """The settings that the program stored."""
    return settings_file.read_settings(settings_path(session))


def tickwell_command(session, folder=None, virtual_time=None, arguments=()):
    """The program's command line. Without `folder` it uses the session's folder, created on first use; never the
    program's own one, which would write into the build."""
    if folder is None:
        folder = session.directory / "folder"
        if not folder.exists():
            make_folder(folder)
    time = [virtual_time.argument] if virtual_time else []
    return [program_path(), "--folder", folder, *time, *arguments]


def start_tickwell(session, folder=None, settings=None, virtual_time=None, arguments=(), environment=None,
                   cwd=None, wrap=lambda command: command):
    """Starts the program, waits until it is on the accessibility bus, and returns its root node. Its window may appear
    later. The message about a missing CD drive is off unless the settings enable it. `wrap` transforms the program's
    command line."""
    if settings is not None or not settings_path(session).exists():
        write_settings(session, SILENT | (settings or {}))
    command = wrap(tickwell_command(session, folder, virtual_time, arguments))
    pass_fds = virtual_time.pass_fds if virtual_time else ()
    program = session.spawn(command, environment=environment, cwd=cwd, pass_fds=pass_fds)
    if virtual_time:
        virtual_time.started()
    return session.wait_app(program)


def main_window(app):
    """The main window, or None if it does not exist yet. Message boxes have the same name and are skipped."""
    windows = (window for window in app.children if window.name == WINDOW and window.role not in BOXES)
    return next(windows, None)


def wait_on_screen(session, app):
    """Waits until the main window can receive mouse and keyboard input, which is slightly after it is accessible.
    Returns its X id."""
    return session.windows.wait(name=WINDOW, pid=app.program.pid)


def lines(app, timeout=PATIENCE):
    """Waits for the two lines of the main window; returns (upper, lower)."""
    def both():
        window = main_window(app)
        labels = window.find_all(role="label") if window else []
        labels.sort(key=lambda label: label.extents[1])
        return tuple(label.name for label in labels) if len(labels) == 2 else None
    return wait_for(both, "the two lines", timeout)


def wait_lines(app, upper=None, lower=None, timeout=PATIENCE):
    """Waits until the lines match, each a text or a predicate of one; returns them."""
    seen = None

    def fits():
        nonlocal seen
        seen = lines(app, timeout)
        return all(wanted is None or agrees(wanted, text) for wanted, text in zip((upper, lower), seen))
    try:
        wait_for(fits, f"the lines {upper!r}, {lower!r}", timeout)
    except TimedOut as error:
        raise TimedOut(f"{error}; they read {seen}") from None
    return seen
