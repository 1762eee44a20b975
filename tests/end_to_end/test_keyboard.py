# SPDX-License-Identifier: GPL-3.0-or-later
"""The keyboard: moving the clock, returning the focus, help and windows without the mouse, access keys."""

import configparser
import unittest
from pathlib import Path

from driver.settings_case import SettingsCase, button, check
from driver.tickwell import (main_window, program_path, start_tickwell, tickwell_command, wait_lines, wait_on_screen,
                             write_settings)
from driver.waiting import wait_for

ON = {"Keyboard": {"MovesWindow": "True"}, "SetUp": {"Win_Left": "1500", "Win_Top": "1500"}}
OFF = {"SetUp": {"Win_Left": "1500", "Win_Top": "1500"}}
HELP = "Tickwell ヘルプ"
ENTRY = Path(__file__).parents[2] / "data/desktop/tickwell.desktop"
OPENED = {"menu": ("popup menu", "メニュー"), "calendar": ("dialog", "カレンダー"), "timer": ("dialog", "タイマー"),
          "stopwatch": ("dialog", "ストップウォッチ"), "help": (None, HELP)}


class KeyboardCase(SettingsCase):
    def start(self, settings=None, **options):
        super().start(settings, **options)
        self.clock = self.session.windows.wait(name="Tickwell", pid=self.app.program.pid)

    def place(self):
        return tuple(main_window(self.app).extents)[:3]

    def wait_place(self, *place):
        wait_for(lambda: self.place() == place, f"the clock at {place}")

    def open_rival(self):
        """Opens another program's window, which takes the focus; returns its id."""
        self.session.spawn(["xmessage", "-name", "rival", "-geometry", "300x200+700+500", "rival"])
        rival = self.session.windows.wait(name="rival")
        self.wait_focus(rival)
        return rival

    def wait_focus(self, window):
        """Waits until the window has the focus, and until the program has noticed whether it is the clock's: Qt notices
        the loss later than the gain, and closes a menu that was opened in between."""
        wait_for(lambda: self.session.windows.focus_owner() == window, f"the focus on {window:#x}")
        is_clock = window == self.clock
        wait_for(lambda: ("active" in main_window(self.app).states) == is_clock, "the program's notice of the focus")

    def wait_active(self, title):
        """Waits until a window has the keyboard focus; returns it. It is visible before."""
        return self.app.wait(name=title, showing=True, which=lambda node: "active" in node.states)

    def close_by_key(self, role, title):
        self.app.wait(role=role, name=title, showing=True)
        if role != "popup menu":  # which grabs the keyboard
            self.wait_active(title)
        self.session.hand.key("Escape")
        self.app.wait_gone(role=role, name=title, showing=True)

    def focus_clock(self):
        self.session.windows.activate(self.clock)
        self.wait_focus(self.clock)

    def wait_help_at(self, heading):
        window = self.wait_active(HELP)
        window.wait(name=heading, which=lambda node: "selected" in node.states)


class Keys(KeyboardCase):
    def test_the_arrows_move_the_clock_and_the_place_is_stored(self):
        self.start(ON)
        self.open_rival()
        self.focus_clock()
        self.wait_place(100, 100, 167)
        self.session.hand.key("Right", "Right", "Down", "shift+Up")
        self.wait_place(116, 107, 167)
        self.session.hand.key("ctrl+Right", "ctrl+shift+Left")
        self.wait_place(116, 107, 174)
        self.session.hand.key(*["ctrl+Left"] * 20)
        self.wait_place(116, 107, 45)
        self.session.hand.key(*["Up"] * 20)
        wait_for(lambda: -40 < self.place()[1] <= -28, "the clock partly above the screen")
        self.session.hand.key("Down")
        self.quit()
        stored = self.stored("SetUp")
        self.assertEqual((stored["Win_Left"], stored["Win_Width"]), (str(116 * 15), str(45 * 15)))

    def test_esc_returns_the_focus(self):
        self.start(ON)
        rival = self.open_rival()
        self.focus_clock()
        self.session.hand.key("Escape")
        self.wait_focus(rival)
        # The menu is opened first with the mouse, then by a second start.
        self.session.hand.click(main_window(self.app))
        self.app.wait(role="popup menu", name="メニュー", showing=True)
        self.session.hand.key("Down", "Escape")
        self.wait_focus(rival)
        self.assertEqual(self.session.spawn(tickwell_command(self.session, arguments=("--menu",))).wait_end(), 0)
        self.app.wait(role="popup menu", name="メニュー", showing=True)
        self.session.hand.key("Escape")
        self.wait_focus(rival)
        self.assertEqual(self.place(), (100, 100, 167))

    def test_the_focus_returns_to_one_of_our_windows(self):
        self.start(ON)
        self.open_rival()
        self.choose("カレンダー")
        calendar = self.session.windows.wait(name="カレンダー", pid=self.app.program.pid)
        self.wait_focus(calendar)
        self.focus_clock()
        self.session.hand.key("Escape")
        self.wait_focus(calendar)

    def test_by_default_they_have_no_effect(self):
        self.start(OFF)
        self.open_rival()
        self.focus_clock()
        self.session.hand.key("Right", "Down", "ctrl+Right", "Escape", "space")
        self.app.wait(role="popup menu", name="メニュー", showing=True)
        self.assertEqual(self.place(), (100, 100, 167))
        self.session.hand.key("Escape", "Right", "space")
        self.app.wait(role="popup menu", name="メニュー", showing=True)
        self.assertEqual(self.place(), (100, 100, 167))
        self.assertEqual(self.session.windows.focus_owner(), self.clock)

    def test_the_settings_switch_them_on(self):
        self.start(OFF)
        self.open()
        self.page("窓")
        for box in ("矢印キーで時計の窓を動かし、Escで元の窓に戻る", "ボタンなどにアクセスキーを付ける"):
            self.assertFalse(self.is_on(check(box)))
            self.click(check(box))
        self.click(button("OK"))
        self.wait_closed()
        self.focus_clock()
        self.session.hand.key("Left")
        self.wait_place(92, 100, 167)
        self.session.hand.key("space")
        self.app.wait(role="popup menu", name="メニュー", showing=True)
        self.session.hand.key("x")  # 終了(X)
        self.assertEqual(self.app.program.wait_end(), 0)
        self.assertEqual(self.stored("Keyboard"), {"MovesWindow": "True", "ShowsAccessKeys": "True"})

    def test_access_keys_choose(self):
        self.start({"Keyboard": {"ShowsAccessKeys": "True"}, "SetUp": {"Function": "2"}})
        self.focus_clock()
        self.session.hand.key("space")
        self.app.wait(role="popup menu", name="メニュー", showing=True).wait(name="カレンダー(C)")
        self.session.hand.key("o")  # 操作ｳｨﾝﾄﾞｳの表示(O)
        window = self.wait_active("ストップウォッチ")
        self.session.hand.key("alt+s")
        window.wait(role="push button", name="ストップ")
        self.session.hand.key("alt+r")  # a button keeps its key when its caption changes
        window.wait(role="text", which=lambda node: node.text.startswith("Lapse1  "))
        self.session.hand.key("alt+s")
        window.wait(role="push button", name="スタート")


class Windows(KeyboardCase):
    def test_f1_opens_the_page_of_a_window(self):
        self.start(OFF)
        self.focus_clock()
        self.session.hand.key("F1")
        self.wait_help_at("ウィンドウの操作")
        self.session.hand.key("Escape")
        self.app.wait_gone(name=HELP, showing=True)
        self.open()
        self.page("時報")
        self.session.hand.key("F1")
        self.wait_help_at("時報")
        self.session.hand.key("Escape")  # the help stays usable while the modal settings dialog is open
        self.app.wait_gone(name=HELP, showing=True)

    def test_a_second_start_opens_a_window(self):
        self.start(OFF)
        for name, (role, title) in OPENED.items():
            arguments = ("--menu",) if name == "menu" else ("--open", name)
            again = self.session.spawn(tickwell_command(self.session, arguments=arguments))
            self.assertEqual((again.wait_end(), again.output()), (0, ""))
            self.close_by_key(role, title)
        self.assertEqual(self.place(), (100, 100, 167))

    def test_a_first_start_opens_a_window(self):
        app = start_tickwell(self.session, arguments=("--open", "calendar"))
        wait_on_screen(self.session, app)
        app.wait(role="dialog", name="カレンダー", showing=True)
        wait_lines(app, upper="Tickwell Ver.2")

    def test_the_desktops_actions_are_commands_of_the_program(self):
        write_settings(self.session, {"Notice": {"NoCdDrive": "False"}})
        entry = configparser.ConfigParser(interpolation=None, strict=True)
        entry.optionxform = str
        entry.read(ENTRY, encoding="utf-8")
        actions = [name for name in entry["Desktop Entry"]["Actions"].split(";") if name]
        self.assertEqual(actions, list(OPENED))
        self.start(OFF)
        for name in actions:
            action = entry[f"Desktop Action {name}"]
            self.assertTrue(action["Name"].isascii() and action["Name[ja]"])
            program, *arguments = action["Exec"].split()
            self.assertEqual(program, "tickwell")
            command = [program_path(), *tickwell_command(self.session)[1:], *arguments]
            self.assertEqual(self.session.spawn(command).wait_end(), 0)
            self.close_by_key(*OPENED[name])


if __name__ == "__main__":
    unittest.main()
