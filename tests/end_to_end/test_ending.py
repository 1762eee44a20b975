# SPDX-License-Identifier: GPL-3.0-or-later
"""The ways in which the program ends, and what it leaves behind."""

import os
import resource
import signal
import unittest

from driver.case import TickwellCase
from driver.tickwell import (SILENT, main_window, read_settings, settings_path, start_tickwell,
                             tickwell_command, wait_lines, wait_on_screen, write_settings)
from driver.waiting import wait_for

KEYS = {
    "SetUp": {"Op_Speed", "Op_Waip", "BackColor", "A_Font", "B_Font", "A_Color", "B_Color", "A_Size", "B_Size",
              "A_Bold", "B_Bold", "A_Italic", "B_Italic", "A_Strikethru", "B_Strikethru", "A_UnderLine",
              "B_UnderLine", "Win_Width", "Win_Top", "Win_Left", "Function", "Clock_File", "Clock_Int"},
    "Digital": {"Language", "TypeYear", "DisMode", "TypeHour"},
}


class Ending(TickwellCase):
    def start(self, **options):
        self.app = start_tickwell(self.session, **options)
        wait_lines(self.app, upper="Tickwell Ver.2")
        self.xid = wait_on_screen(self.session, self.app)

    def close(self):
        self.session.windows.close_window(self.xid)

    def test_closing_writes_all_settings(self):
        self.start()
        self.assertEqual(read_settings(self.session), SILENT)
        self.close()
        self.assertEqual(self.app.program.wait_end(), 0)
        stored = read_settings(self.session)
        self.assertEqual({section: set(keys) for section, keys in stored.items()}, KEYS | {"Notice": {"NoCdDrive"}})
        self.assertEqual(stored["SetUp"]["A_Font"], "ＭＳ Ｐゴシック")
        self.assertEqual(stored["SetUp"]["Clock_File"], "鳩時計の音")
        self.assertEqual(self.app.program.output(), "")

    def test_unknown_sections_and_keys_survive(self):
        self.start(settings={"SetUp": {"Op_Speed": "30", "Future": "yes"}, "Wape": {"Time": "12"},
                             "Mine": {"a": "b"}})
        self.close()
        self.app.program.wait_end()
        stored = read_settings(self.session)
        self.assertEqual(stored["SetUp"]["Op_Speed"], "30")
        self.assertEqual(stored["SetUp"]["Future"], "yes")
        self.assertEqual(stored["Wape"], {"Time": "12"})
        self.assertEqual(stored["Mine"], {"a": "b"})

    def test_a_terminated_program_saves_nothing(self):
        self.start()
        os.kill(self.app.program.pid, signal.SIGTERM)
        self.assertEqual(self.app.program.wait_end(), -signal.SIGTERM)
        self.assertEqual(read_settings(self.session), SILENT)

    def test_a_killed_program_saves_nothing_and_the_next_start_works(self):
        self.start()
        self.app.program.kill()
        self.assertEqual(read_settings(self.session), SILENT)
        self.start()

    def test_the_end_of_the_desktop_session_saves(self):
        write_settings(self.session, SILENT)
        command = " ".join(map(str, tickwell_command(self.session)))
        (self.session.home / ".xsmstartup").write_text(command + "\n", encoding="utf-8")
        manager = self.session.spawn(["xsm"])
        windows, hand = self.session.windows, self.session.hand
        windows.wait(name="Tickwell")
        self.assertEqual(read_settings(self.session), SILENT)

        panel = windows.settled_geometry(windows.wait(name="xsm: Default"))
        shown = set(windows.stacking())
        button = (panel.x + panel.width * 5 // 7, panel.y + panel.height - 17)
        hand.press(button)
        wait_for(lambda: set(windows.stacking()) - shown, "the menu of xsm")
        hand.release((button[0], button[1] + 22))  # its first item: save the session and shut down
        dialog = windows.settled_geometry(windows.wait(name="Shutdown"))
        hand.move((dialog.x + 150, dialog.y + 15))  # the keyboard focus follows the pointer
        hand.type("desk")
        hand.click((dialog.x + 50, dialog.y + dialog.height - 18))
        manager.wait_end()
        self.assertEqual(set(read_settings(self.session)["SetUp"]), KEYS["SetUp"])

    def test_settings_that_cannot_be_written_are_reported_and_unchanged(self):
        write_settings(self.session, SILENT | {"SetUp": {"Op_Speed": "30"}})
        path = settings_path(self.session)
        before = path.read_bytes()
        self.start()
        resource.prlimit(self.app.program.pid, resource.RLIMIT_FSIZE, (100, 100))  # as on a full disk
        self.close()
        box = self.app.wait(role="alert message")
        told = "実行時エラー\n設定ファイルを書き込めません。"
        self.assertTrue(box.find(role="label", name=lambda name: name.startswith(told)), box.dump())
        self.assertFalse(main_window(self.app).showing)
        box.find(role="push button").press_and_go()
        self.assertEqual(self.app.program.wait_end(), 0)
        self.assertEqual(path.read_bytes(), before)
        self.assertEqual(os.listdir(path.parent), [path.name])

    def test_the_last_geometry_is_found_again(self):
        self.start(settings={"SetUp": {"Win_Left": "1500", "Win_Top": "3000", "Win_Width": "3000"}})
        extents = tuple(main_window(self.app).extents)
        self.assertEqual(extents, (100, 200, 200, 40))
        self.close()
        self.app.program.wait_end()
        self.start()
        wait_for(lambda: tuple(main_window(self.app).extents) == extents, "the window at its old place")


if __name__ == "__main__":
    unittest.main()
