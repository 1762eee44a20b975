# SPDX-License-Identifier: GPL-3.0-or-later
"""The main window's menu, and the controls of the windows that it opens."""

from driver.tickwell import main_window
from driver.waiting import wait_for

MENU = "メニュー"


def choose(session, app, caption):
    """Chooses an item of the main window's menu with the mouse. Waits first until the previous menu is closed, because
    it can still cover the centre of the window and receive the click."""
    wait_for(lambda: not app.menus, "the end of the menu before")
    session.hand.click(main_window(app))
    session.hand.click(app.wait(role="popup menu", name=MENU).wait(name=caption))


def wait_window(app, title):
    """Waits until a window of the program with this title is shown."""
    return app.wait(role="dialog", name=title, showing=True)


def wait_for_hand(session, app, title):
    """Waits until mouse and keyboard reach a window of the program; returns its X id. Fails immediately if the program
    ends."""
    def found():
        app.program.check_running()
        return session.windows.find(title, app.program.pid)
    return wait_for(found, f"the window {title} on the screen")


def button(window, caption):
    """Waits for the button with this caption."""
    return window.wait(role="push button", name=caption)


def press(window, caption):
    """Presses it without waiting for the effect."""
    button(window, caption).press_and_go()
