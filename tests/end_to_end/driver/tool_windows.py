# SPDX-License-Identifier: GPL-3.0-or-later
"""The main window's menu, and the controls of the windows that it opens."""

from driver.tickwell import main_window

MENU = "メニュー"


def choose(session, app, caption):
    """Chooses an item of the main window's menu with the mouse."""
    session.hand.click(main_window(app))
    session.hand.click(app.wait(role="popup menu", name=MENU).wait(name=caption))


def wait_window(app, title):
    """A window of the program by its title, once it shows."""
    return app.wait(role="dialog", name=title, showing=True)


def button(window, caption):
    """A button by what it says at the moment, waited for."""
    return window.wait(role="push button", name=caption)


def press(window, caption):
    """Presses it without waiting for what it does."""
    button(window, caption).press_and_go()
