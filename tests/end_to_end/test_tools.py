# SPDX-License-Identifier: GPL-3.0-or-later
"""Companion tools next to the program."""

import unittest

from driver.case import TickwellCase
from driver.tickwell import (SILENT, main_window, make_folder, start_tickwell, tickwell_command, wait_lines,
                             wait_on_screen, write_settings)
from driver.waiting import wait_for

TOOL = """#!/bin/sh
printf '%s|' "$#" "$@" "$PWD" >told.part && mv told.part told
"""
# Prints what a program inherits besides its arguments.
HEIR = """#!/bin/sh
{ grep -E '^Sig(Blk|Ign):' /proc/self/status; umask; tr '\\0' '\\n' </proc/$$/environ; } >told.part && mv told.part told
"""


class Tools(TickwellCase):
    def start(self, tools):
        """`tools`: {file: text}; each is made executable."""
        self.folder = make_folder(self.session.directory / "a folder")
        for file, text in tools.items():
            (self.folder / file).write_text(text, encoding="ascii")
            (self.folder / file).chmod(0o755)
        self.app = start_tickwell(self.session, folder=self.folder)
        wait_lines(self.app, upper="Tickwell Ver.2")
        wait_on_screen(self.session, self.app)

    def open_menu(self):
        self.session.hand.click(main_window(self.app))
        return self.app.wait(role="popup menu", name="メニュー")

    def open_tools(self):
        self.session.hand.click(self.open_menu().wait(name="ツール"))
        return self.app.wait(role="popup menu", name="ツール")

    def test_a_tool_is_started_in_the_folder_with_its_word(self):
        self.start({"KT04.exe": TOOL, "KT09.exe": TOOL})
        tools = self.open_tools()
        shown = [item.name for item in tools.children if item.showing]
        self.assertEqual(shown, ["伝言板", "マウスクリック"])
        self.session.hand.click(tools.wait(name="伝言板"))
        told = self.folder / "told"
        wait_for(told.exists, "the tool's word")
        self.assertEqual(told.read_text(encoding="utf-8"), f"1|VeskOnly|{self.folder}|")

    def test_a_tool_that_does_not_start_is_reported(self):
        self.start({"KT01.exe": TOOL})
        (self.folder / "KT01.exe").chmod(0o644)
        self.session.hand.click(self.open_tools().wait(name="電卓"))
        box = self.app.wait(role="alert message", name="Tickwell")
        self.assertTrue(box.find(role="label", name=lambda text: text.startswith("実行時エラー")), box.dump())

    def test_a_tool_inherits_the_users_environment_and_no_signals(self):
        folder = make_folder(self.session.directory / "heirs")
        (folder / "KT04.exe").write_text(HEIR, encoding="ascii")
        (folder / "KT04.exe").chmod(0o755)
        write_settings(self.session, SILENT)
        before = {name: str(value) for name, value in self.session.environment.items() if name != "QT_QPA_PLATFORM"}
        # As from a shell script: ignores some signals and has its own umask.
        script = 'trap "" HUP INT QUIT; umask 027; unset QT_QPA_PLATFORM; exec "$@"'
        program = self.session.spawn(["sh", "-c", script, "sh", *tickwell_command(self.session, folder)])
        self.app = self.session.wait_app(program)
        wait_lines(self.app, upper="Tickwell Ver.2")
        wait_on_screen(self.session, self.app)
        self.session.hand.click(self.open_tools().wait(name="伝言板"))
        told = folder / "told"
        wait_for(told.exists, "the tool's word")
        lines = told.read_text(encoding="utf-8").splitlines()
        self.assertEqual(lines[:3], ["SigBlk:\t0000000000000000", "SigIgn:\t0000000000000000", "0027"])
        after = dict(line.split("=", 1) for line in lines[3:])
        own = {"PWD", "OLDPWD", "SHLVL", "_"}  # set by the shells
        self.assertEqual({name: value for name, value in after.items() if name not in own},
                         {name: value for name, value in before.items() if name not in own})

    def test_without_tools_there_is_no_submenu(self):
        self.start({})
        self.assertNotIn("ツール", [item.name for item in self.open_menu().children if item.showing])


if __name__ == "__main__":
    unittest.main()
