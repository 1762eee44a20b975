# SPDX-License-Identifier: GPL-3.0-or-later
"""The menu items that open the help and the about box."""

import shutil
import subprocess
import unittest

from driver.case import TickwellCase
from driver.tickwell import main_window, start_tickwell, wait_lines, wait_on_screen
from driver.virtual_time import VirtualTime
from driver.waiting import wait_for

ABOUT = "Tickwellのﾊﾞｰｼﾞｮﾝ情報"
HELP = "Tickwell ヘルプ"
NO_SYSTEM_INFORMATION = "現時点ではｼｽﾃﾑ情報を使用できません"
THANKS = ("ダウンロードしていただきまして、\nありがとうございます。",
          "ご意見、ご感想をお寄せください。\n今後の開発に生かしたいと思います。",
          "連絡先はヘルプに記載しています。\n詳しくは連絡先をご覧ください。")
SYSTEM_INFORMATION = """#!/bin/sh
echo "$0" >"$HOME/started.part" && mv "$HOME/started.part" "$HOME/started"
"""


class Menu(TickwellCase):
    def start(self, environment=None):
        self.time = VirtualTime("1998-11-15T21:05:07")
        self.addCleanup(self.time.close)
        self.app = start_tickwell(self.session, virtual_time=self.time, environment=environment)
        wait_lines(self.app, upper="Tickwell Ver.2")
        wait_on_screen(self.session, self.app)

    def choose(self, caption):
        self.session.hand.click(main_window(self.app))
        self.session.hand.click(self.app.wait(role="popup menu", name="メニュー").wait(name=caption))

    def open_about(self):
        self.choose("バージョン情報")
        return self.app.wait(role="dialog", name=ABOUT, showing=True, which=lambda node: "active" in node.states)

    def wait_help_at(self, heading):
        """Waits until the help is shown with the topic of this heading selected."""
        window = self.app.wait(name=HELP, showing=True, which=lambda node: "active" in node.states)
        window.wait(name=heading, which=lambda node: "selected" in node.states)
        return window

    def without_system_information(self):
        """An environment whose PATH contains only what is needed to start the program."""
        bare = self.session.directory / "bare"
        bare.mkdir()
        (bare / "setpriv").symlink_to(shutil.which("setpriv"))
        return {"PATH": str(bare)}

    def test_the_help_opens_at_its_beginning_and_closes_with_escape(self):
        self.start()
        self.choose("ﾍﾙﾌﾟ")
        self.wait_help_at("Tickwell について")
        self.session.hand.key("Escape")
        self.app.wait_gone(name=HELP, showing=True)

    def test_the_help_is_searched_by_keyboard(self):
        self.start()
        self.choose("ﾍﾙﾌﾟ")
        window = self.wait_help_at("Tickwell について")
        self.session.hand.key("ctrl+f")
        window.wait(role="text", which=lambda node: "focused" in node.states and "editable" in node.states).set_text(
            "電卓")
        self.session.hand.key("Return")
        window.wait(role="label", name=lambda text: text.startswith("1 / "))

    def test_the_about_box_opens_near_the_window_and_rotates_its_thanks(self):
        self.start()
        about = self.open_about()
        self.assertTrue(about.find(role="label", name="Tickwell"))
        self.assertTrue(about.find(role="label", name="Ver.2.0.0"))
        for message in (*THANKS, *THANKS[:2]):
            about.wait(role="label", name=message)
            self.time.advance(3500)
        x, y, _, _ = about.extents
        self.assertTrue(0 <= x < 100 and 40 <= y < 140, (x, y))

    def test_the_thanks_begin_anew_with_each_opening(self):
        self.start()
        self.open_about()
        self.time.advance(3500)
        self.session.hand.key("Escape")
        self.app.wait_gone(role="dialog", name=ABOUT, showing=True)
        self.open_about().wait(role="label", name=THANKS[0])

    def test_the_about_box_leads_to_the_contact_page(self):
        self.start()
        self.session.hand.click(self.open_about().wait(role="push button", name="連絡先"))
        self.wait_help_at("連絡先")

    def test_the_system_information_program_is_started(self):
        programs = self.session.directory / "programs"
        programs.mkdir()
        (programs / "hardinfo").write_text(SYSTEM_INFORMATION, encoding="ascii")
        (programs / "hardinfo").chmod(0o755)
        self.start({"PATH": f"{programs}:{self.session.environment['PATH']}"})
        self.session.hand.click(self.open_about().wait(role="push button", name=lambda name: "ｼｽﾃﾑ情報" in name))
        started = self.session.home / "started"
        wait_for(started.exists, "the system information program")
        self.assertEqual(started.read_text(encoding="utf-8").strip(), str(programs / "hardinfo"))

    def test_without_a_system_information_program_a_box_says_so(self):
        self.start(self.without_system_information())
        self.session.hand.click(self.open_about().wait(role="push button", name=lambda name: "ｼｽﾃﾑ情報" in name))
        box = self.app.wait(role="alert message", name="Tickwell", showing=True)
        self.assertTrue(box.find(role="label", name=NO_SYSTEM_INFORMATION), box.dump())

    def test_the_facts_are_copied_as_text(self):
        self.start()
        self.session.hand.click(self.open_about().wait(role="push button", name=lambda name: "コピー" in name))
        facts = subprocess.run(["xclip", "-selection", "clipboard", "-out"], env=self.session.environment,
                               capture_output=True, check=True, timeout=10).stdout.decode()
        self.assertIn("Tickwell: 2.0.0\n", facts)
        self.assertIn("1280x1024", facts)
        self.assertNotIn(str(self.session.home), facts)

    def test_windows_left_open_do_not_outlive_the_main_window(self):
        self.start()
        self.open_about()
        self.choose("ﾍﾙﾌﾟ")
        self.app.wait(name=HELP, showing=True)
        self.choose("終了")
        self.assertEqual(self.app.program.wait_end(), 0)
        self.assertEqual(self.app.program.output(), "")


if __name__ == "__main__":
    unittest.main()
