# SPDX-License-Identifier: GPL-3.0-or-later
"""At most one running program per folder."""

import signal
import os
import unittest

from driver.boxes import START_ERROR, wait_box
from driver.case import TickwellCase
from driver.tickwell import main_window, make_folder, start_tickwell, tickwell_command, wait_lines
from driver.waiting import wait_for


class WithoutWindowManager(TickwellCase):
    window_manager = None  # some move a window that is completely off screen back

    def test_a_second_start_brings_the_first_forward_and_ends(self):
        first = start_tickwell(self.session, settings={"SetUp": {"Win_Left": "90000", "Win_Top": "90000"}})
        wait_lines(first, upper="Tickwell Ver.2")
        x, y, _, _ = main_window(first).extents
        self.assertTrue(x >= 1280 or y >= 1024, (x, y))  # completely off screen, as it was stored
        second = self.session.spawn(tickwell_command(self.session))
        self.assertEqual(second.wait_end(), 0)
        self.assertEqual(second.output(), "")

        def on_screen():
            left, top, width, height = main_window(first).extents
            return 0 <= left <= 1280 - width and 0 <= top <= 1024 - height
        wait_for(on_screen, "the first window on the screen")


class Instance(TickwellCase):
    def test_a_second_start_leaves_a_window_that_is_seen_where_it_is(self):
        first = start_tickwell(self.session, settings={"SetUp": {"Win_Left": "1500", "Win_Top": "3000"}})
        wait_lines(first, upper="Tickwell Ver.2")
        self.assertEqual(self.session.spawn(tickwell_command(self.session)).wait_end(), 0)
        self.assertEqual(tuple(main_window(first).extents)[:2], (100, 200))

    def test_a_second_start_opens_the_menu_for_the_keyboard(self):
        first = start_tickwell(self.session)
        wait_lines(first, upper="Tickwell Ver.2")
        self.session.spawn(["xmessage", "-name", "rival", "-geometry", "400x300+500+500", "rival"])
        rival = self.session.windows.wait(name="rival")
        wait_for(lambda: self.session.windows.focus_owner() == rival, "the rival focused")
        menu = tickwell_command(self.session, arguments=("--menu",))
        self.assertEqual(self.session.spawn(menu).wait_end(), 0)
        first.wait(role="popup menu", name="メニュー")
        self.session.hand.key("Up", "Return")  # the last item ends the program
        self.assertEqual(first.program.wait_end(), 0)

    def test_a_first_start_opens_the_menu_on_request(self):
        first = start_tickwell(self.session, arguments=("--menu",))
        first.wait(role="popup menu", name="メニュー")

    def test_two_folders_are_two_programs(self):
        first = start_tickwell(self.session)
        other = start_tickwell(self.session, folder=make_folder(self.session.directory / "other"))
        wait_lines(first, upper="Tickwell Ver.2")
        wait_lines(other, upper="Tickwell Ver.2")

    def test_something_else_in_the_place_of_the_socket_is_named(self):
        first = start_tickwell(self.session)
        wait_lines(first, upper="Tickwell Ver.2")
        (socket,) = (self.session.directory / "run").glob("tickwell-*")
        first.program.kill()
        socket.unlink()
        socket.mkdir()
        first = start_tickwell(self.session)  # runs nevertheless
        wait_lines(first, upper="Tickwell Ver.2")
        self.assertIn(str(socket), first.program.output())
        second = start_tickwell(self.session)
        box = wait_box(second, f"{START_ERROR}すでに起動していますが、応答がありません。\n{socket}\n連絡用のソケットの場所に別の"
                               "ものがあります。それを移動または削除し、")
        box.find(role="push button").press_and_go()
        self.assertEqual(second.program.wait_end(), 1)
        self.assertTrue(socket.is_dir())

    def test_a_first_instance_that_does_not_answer_is_reported(self):
        first = start_tickwell(self.session)
        wait_lines(first, upper="Tickwell Ver.2")
        os.kill(first.program.pid, signal.SIGSTOP)
        self.addCleanup(os.kill, first.program.pid, signal.SIGCONT)
        second = start_tickwell(self.session)
        box = second.wait(role="alert message")
        self.assertTrue(box.find(role="label", name=lambda text: "応答がありません" in text), box.dump())
        box.find(role="push button").press_and_go()
        self.assertEqual(second.program.wait_end(), 1)


if __name__ == "__main__":
    unittest.main()
