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
    """The program under test."""
    path = Path(os.environ.get(PROGRAM_VARIABLE, ""))
    if not path.is_file():
        raise FileNotFoundError(f"environment variable {PROGRAM_VARIABLE} has to name the program to test")
    return path.absolute()


def make_folder(path, without=()):
    """Makes a program folder out of the masters beside the program, some of them left out; returns its
    path."""
    folder = Path(path)
    folder.mkdir(parents=True)
    for master in set(MASTERS).difference(without):
        # Contents alone: the copy can be written, whatever the master's rights.
        shutil.copyfile(program_path().parent / master, folder / master)
    return folder


def settings_path(session):
    return session.home / ".config/TKW2/TKW2.ini"


def write_settings(session, settings):
    """Settings {section: {key: value}} for the program to find at its next start."""
    settings_file.write_settings(settings_path(session), settings)


def read_settings(session):
    """The settings as the program left them."""
    return settings_file.read_settings(settings_path(session))


def tickwell_command(session, folder=None, virtual_time=None, arguments=()):
    """The words that start the program. Without a folder it gets the session's own, made when it is first
    needed; never its own one, where it would write into the build."""
    if folder is None:
        folder = session.directory / "folder"
        if not folder.exists():
            make_folder(folder)
    time = [virtual_time.argument] if virtual_time else []
    return [program_path(), "--folder", folder, *time, *arguments]


def start_tickwell(session, folder=None, settings=None, virtual_time=None, arguments=(), environment=None,
                   cwd=None, wrap=lambda command: command):
    """Starts the program and waits until it can be asked; returns its topmost node. Its window may come
    later. That the machine has no CD drive is told only where the settings ask for it. `wrap` makes the
    command that starts the program out of the program's own."""
    if settings is not None or not settings_path(session).exists():
        write_settings(session, SILENT | (settings or {}))
    command = wrap(tickwell_command(session, folder, virtual_time, arguments))
    pass_fds = virtual_time.pass_fds if virtual_time else ()
    program = session.spawn(command, environment=environment, cwd=cwd, pass_fds=pass_fds)
    if virtual_time:
        virtual_time.started()
    return session.wait_app(program)


def main_window(app):
    """The main window, or None while it is not there. Message boxes bear the same name and are passed
    over."""
    windows = (window for window in app.children if window.name == WINDOW and window.role not in BOXES)
    return next(windows, None)


def wait_on_screen(session, app):
    """Waits until the main window is really there for mouse and keyboard: screen readers know of it a moment before.
    Returns its X id."""
    return session.windows.wait(name=WINDOW, pid=app.program.pid)


def lines(app, timeout=PATIENCE):
    """The two lines of the main window, (upper, lower), once they are there."""
    def both():
        window = main_window(app)
        labels = window.find_all(role="label") if window else []
        labels.sort(key=lambda label: label.extents[1])
        return tuple(label.name for label in labels) if len(labels) == 2 else None
    return wait_for(both, "the two lines", timeout)


def wait_lines(app, upper=None, lower=None, timeout=PATIENCE):
    """Waits until the lines read so, each a text or a test of one; returns them."""
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
