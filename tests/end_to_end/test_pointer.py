# SPDX-License-Identifier: GPL-3.0-or-later
"""Mouse operation of the main window: dragging, resizing, the menu, and its position above others."""

import unittest

from driver.case import TickwellCase
from driver.tickwell import main_window, read_settings, start_tickwell, wait_lines, wait_on_screen
from driver.waiting import wait_for


class Pointer(TickwellCase):
    def setUp(self):
        super().setUp()
        self.app = start_tickwell(self.session, settings={"SetUp": {"Win_Left": "1500", "Win_Top": "1500"}})
        wait_lines(self.app, upper="Tickwell Ver.2")
        wait_on_screen(self.session, self.app)
        self.window = main_window(self.app)

    def wait_extents(self, *extents):
        wait_for(lambda: tuple(self.window.extents) == extents, f"the window at {extents}")

    def close(self):
        self.session.windows.close_window(wait_on_screen(self.session, self.app))
        self.assertEqual(self.app.program.wait_end(), 0)

    def test_it_is_dragged_by_either_line_and_found_there_again(self):
        self.wait_extents(100, 100, 167, 40)
        self.session.hand.drag((120, 110), (320, 310))  # at the upper line
        self.wait_extents(300, 300, 167, 40)
        self.session.hand.drag((320, 330), (220, 430))  # at the lower line
        self.wait_extents(200, 400, 167, 40)
        self.assertIsNone(self.app.find(role="popup menu"))  # a drag is not a click
        self.close()
        self.assertEqual(read_settings(self.session)["SetUp"]["Win_Left"], "3000")
        self.assertEqual(read_settings(self.session)["SetUp"]["Win_Top"], "6000")
        again = start_tickwell(self.session)
        wait_lines(again, upper="Tickwell Ver.2")
        self.assertEqual(tuple(main_window(again).extents), (200, 400, 167, 40))

    def test_its_right_edge_changes_the_width(self):
        self.wait_extents(100, 100, 167, 40)
        self.session.hand.drag((265, 120), (365, 125))
        self.wait_extents(100, 100, 267, 40)
        self.close()
        self.assertEqual(read_settings(self.session)["SetUp"]["Win_Width"], "4005")

    def test_both_buttons_open_the_menu(self):
        for button in (1, 3):
            with self.subTest(button=button):
                self.session.hand.click((130, 130), button=button)
                self.app.wait(role="popup menu")
                self.session.hand.key("Escape")
                self.app.wait_gone(role="popup menu")

    def test_the_keyboard_opens_the_menu_and_chooses(self):
        self.session.hand.click((130, 130))  # also focuses the window
        self.app.wait(role="popup menu")
        self.session.hand.key("Escape")
        self.app.wait_gone(role="popup menu")
        self.session.hand.key("space")
        self.app.wait(role="popup menu")
        self.session.hand.key("Up", "Return")  # the last item ends the program
        self.assertEqual(self.app.program.wait_end(), 0)

    def test_it_lies_above_normal_windows_and_does_not_take_the_focus(self):
        windows = self.session.windows
        self.session.spawn(["xmessage", "-name", "rival", "-geometry", "400x300+50+50", "rival"])
        rival = windows.wait(name="rival")
        ours = windows.wait(name="Tickwell")
        wait_for(lambda: windows.focus_owner() == rival, "the rival focused")
        self.assertTrue(windows.is_above(ours, rival))
        self.session.hand.click((300, 300))  # would raise the rival
        self.assertTrue(windows.is_above(ours, rival))
        self.assertEqual(windows.focus_owner(), rival)


if __name__ == "__main__":
    unittest.main()
