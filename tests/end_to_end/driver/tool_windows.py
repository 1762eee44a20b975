# SPDX-License-Identifier: GPL-3.0-or-later
"""The main window's menu, and the controls of the windows that it opens."""

from driver.tickwell import main_window
from driver.waiting import wait_for

MENU = "メニュー"


def choose(session, app, caption):
    """Chooses an item of the main window's menu with the mouse. A menu from which something was chosen just now may lie
    over the middle of the window still, and would take the click."""
    wait_for(lambda: not app.menus, "the end of the menu before")
    session.hand.click(main_window(app))
    session.hand.click(app.wait(role="popup menu", name=MENU).wait(name=caption))


def wait_window(app, title):
    """A window of the program by its title, once it shows."""
    return app.wait(role="dialog", name=title, showing=True)


def wait_for_hand(session, app, title):
    """The X id of a window of the program, once mouse and keyboard reach it. A program that ends meanwhile is told
    at once."""
    def found():
        app.program.check_running()
        return session.windows.find(title, app.program.pid)
    return wait_for(found, f"the window {title} on the screen")


def button(window, caption):
    """A button by what it says at the moment, waited for."""
    return window.wait(role="push button", name=caption)


def press(window, caption):
    """Presses it without waiting for what it does."""
    button(window, caption).press_and_go()
