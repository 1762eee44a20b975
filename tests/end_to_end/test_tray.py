# SPDX-License-Identifier: GPL-3.0-or-later
"""Hiding the window in the notification area of real panels, and restoring it."""

import unittest

from driver.case import TickwellCase
from driver.tickwell import main_window, start_tickwell, tickwell_command, wait_lines, wait_on_screen
from driver.tray_hosts import TrayIcon, start_trayer, start_xfce_panel
from driver.waiting import wait_for

MENU = "メニュー"
STORE = "ﾀｽｸﾊﾞｰ格納"
FROM_EDGE = 15  # pixels from the edge of a menu into its first or last item
TRAY_MENU = ["ﾀｽｸﾄﾚｲから取り出す", "", "ﾍﾙﾌﾟ", "終了"]


class TrayCase(TickwellCase):
    def start(self):
        self.app = start_tickwell(self.session, settings={"SetUp": {"Win_Left": "1500", "Win_Top": "1500"}})
        wait_lines(self.app, upper="Tickwell Ver.2")
        wait_on_screen(self.session, self.app)

    def store_item(self):
        self.session.hand.click((130, 130))
        return self.app.wait(role="popup menu", name=MENU).wait(name=STORE)

    def store(self):
        self.session.hand.click(self.store_item())
        wait_for(lambda: not self.on_screen(), "the window put away")

    def on_screen(self):
        return self.session.windows.find(name="Tickwell", pid=self.app.program.pid) is not None

    def wait_back(self):
        wait_for(self.on_screen, "the window back")
        wait_for(lambda: tuple(main_window(self.app).extents) == (100, 100, 167, 40), "the window in its place")


class WithoutHost(TrayCase):
    def test_its_item_is_disabled(self):
        self.start()
        self.assertFalse(self.store_item().enabled)
        self.session.hand.click(self.app.wait(role="popup menu", name=MENU).wait(name=STORE))
        self.assertTrue(self.on_screen())


class HostRoads:
    """Tests for every kind of panel."""

    def setUp(self):
        super().setUp()
        self.host = self.start_host()
        self.icon = TrayIcon(self.session)
        self.start()

    def test_the_icons_menu_brings_the_window_back(self):
        self.store()
        self.session.hand.click(self.icon.wait(), button=3)
        self.choose_from_tray_menu("ﾀｽｸﾄﾚｲから取り出す")
        self.wait_back()
        self.icon.wait_gone()

    def test_a_click_on_the_icon_brings_the_window_back(self):
        self.store()
        self.session.hand.click(self.icon.wait())
        self.wait_back()
        self.icon.wait_gone()

    def test_a_second_start_brings_the_window_back(self):
        self.store()
        self.icon.wait()
        self.assertEqual(self.session.spawn(tickwell_command(self.session)).wait_end(), 0)
        self.wait_back()
        self.icon.wait_gone()

    def test_the_end_of_the_host_gives_the_window_back(self):
        self.store()
        self.icon.wait()
        self.host.stop()
        self.wait_back()
        self.assertFalse(self.store_item().enabled)

    def test_the_program_ends_from_the_icons_menu_and_takes_the_icon_along(self):
        self.store()
        self.session.hand.click(self.icon.wait(), button=3)
        self.choose_from_tray_menu("終了")
        self.assertEqual(self.app.program.wait_end(), 0)
        self.icon.wait_gone()


class WindowHost(HostRoads, TrayCase):
    """The icon is a window of the program, embedded in the panel, and its menu is the program's."""

    def start_host(self):
        return start_trayer(self.session)

    def choose_from_tray_menu(self, caption):
        menu = self.app.wait(role="popup menu")
        self.assertEqual([item.name for item in menu.children], TRAY_MENU)
        self.session.hand.click(menu.wait(name=caption))


class BusHost(HostRoads, TrayCase):
    """The panel draws the icon and its menu from the data it receives over the bus."""

    def start_host(self):
        return start_xfce_panel(self.session)

    def start(self):
        super().start()
        self.without_menu = self.shown()

    def choose_from_tray_menu(self, caption):
        """The panel hides its menu from screen readers, and ignores input that comes too soon after the menu opened."""
        def is_chosen():
            menu = self.tray_menu()
            if menu is not None:
                self.session.hand.click((menu.x + FROM_EDGE, menu.y + FROM_EDGE if caption == TRAY_MENU[0]
                                         else menu.y + menu.height - FROM_EDGE))
            return menu is None
        wait_for(self.tray_menu, "the panel's menu")
        wait_for(is_chosen, f"{caption} chosen from the panel's menu")

    def tray_menu(self):
        """The position of the menu, which a helper process of the panel shows; None while it is closed."""
        shown = self.shown() - self.without_menu
        return next((place for place in map(self.session.windows.geometry, shown) if place.x >= 0), None)

    def shown(self):
        return {window.xid for window in self.session.windows.stacking() if window.pid != self.app.program.pid}


if __name__ == "__main__":
    unittest.main()
