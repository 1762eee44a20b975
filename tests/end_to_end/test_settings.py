# SPDX-License-Identifier: GPL-3.0-or-later
"""The settings dialog operated with the mouse: every page, its effect on the lines, and what persists after a
restart."""

import contextlib
import os
import sqlite3
import subprocess
import unittest

from driver import processes
from driver.answering import LONGEST, keeps_answering
from driver.settings_case import SettingsCase, button, check, radio
from driver.tickwell import main_window, make_folder, program_path, read_settings, start_tickwell, wait_lines
from driver.virtual_time import VirtualTime
from driver.waiting import wait_for

TIME_BEHIND_MIDNIGHT = "午前0時00分10秒"
DATE, TIME = "平成10年11月15日(日曜日)", "午後9時05分18秒"


class EveryPage(SettingsCase):
    def test_all_pages_reach_the_lines_and_survive_a_restart(self):
        self.start()
        wait_lines(self.app, upper=DATE, lower=TIME)
        self.open()
        self.set_text_page()
        self.set_clock_page()
        self.set_roll_page()
        self.set_chime_page()
        self.click(button("OK"))
        self.wait_closed()
        wait_lines(self.app, upper="11/15/1998 Sun.", lower="21:05:18")
        self.time.advance(2000)
        self.check_looks()
        self.time.advance(1000)  # the next refresh of the roll
        wait_lines(self.app, upper="Windows使用時間")
        self.quit()
        self.check_stored()

        self.start()
        wait_lines(self.app, upper="Windows使用時間", lower="0:05:18")
        self.open()
        self.check_pages()

    def set_text_page(self):
        self.click(radio("下から上"))
        slider = self.dialog.wait(role="slider", name="ｽｸﾛｰﾙ速度")
        self.session.hand.click(slider)
        self.session.hand.key("End")
        wait_for(lambda: slider.value == 34, "the fastest speed")
        self.click(button("上段文字＞＞"))
        picker = self.window("上段文字")
        self.click(check("太字"), check("下線"), window=picker)
        picker.wait(role="spin box").set_value(24)
        self.click(button("OK"), window=picker)
        self.wait_closed("上段文字")
        self.click(button("背景色＞＞"))
        colours = self.window("背景色")
        code = colours.wait(role="text", which=lambda node: node.text.startswith("#"))
        self.session.hand.click(code)
        self.session.hand.key("ctrl+a")
        self.session.hand.type("#000080")
        wait_for(lambda: code.text == "#000080", "the colour typed")
        self.session.hand.click(colours.wait(role="push button", name="OK"))
        self.wait_closed("背景色")

    def set_clock_page(self):
        self.page("時計")
        self.click(radio("英語"), radio("数字"), radio("簡略表示"), radio("24時間制"))

    def set_roll_page(self):
        self.page("ロール")
        self.click(radio("ロール機能を使用する"), check("バッテリー監視（AC電源時は無効）"))
        self.dialog.wait(role="spin box", name="交換速度").set_value(3)

    def set_chime_page(self):
        self.page("時報")
        self.click(radio("利用しない"))
        self.session.hand.click(self.dialog.wait(role="combo box", showing=True))
        self.dialog.wait(role="list", showing=True)
        self.session.hand.key("End", "Return")
        self.dialog.wait(role="combo box", name="人の掛け声", showing=True)

    def check_looks(self):
        """The upper line is larger, and both lines have another background colour."""
        area = tuple(main_window(self.app).extents)
        self.assertGreater(area[3], 40)

        def shown():
            return {(0, 0, 128), (255, 255, 255), (0, 255, 0)} <= {
                colour for _, colour in self.session.grab(area).getcolors(1 << 16)}
        wait_for(shown, "both lines on the new background")

    def check_stored(self):
        setup, digital, roll = (self.stored(section) for section in ("SetUp", "Digital", "Roll"))
        expected = {"Op_Waip": "3", "Op_Speed": "34", "A_Bold": "True", "A_UnderLine": "True", "A_Italic": "False",
                    "A_Size": "24", "A_Font": "ＭＳ Ｐゴシック", "B_Bold": "False", "B_Size": "10",
                    "BackColor": "8388608", "Clock_Int": "2", "Clock_File": "人の掛け声", "Function": "1"}
        self.assertEqual({key: setup[key] for key in expected}, expected)
        self.assertEqual(digital, {"Language": "1", "TypeYear": "1", "DisMode": "1", "TypeHour": "1"})
        self.assertEqual(roll, {"Use": "True", "Kinds": "0,1,5", "Interval": "3"})

    def check_pages(self):
        self.assertTrue(self.is_on(radio("下から上")))
        self.assertEqual(self.dialog.wait(role="slider", name="ｽｸﾛｰﾙ速度").value, 34)
        self.page("時計")
        for caption in ("英語", "数字", "簡略表示", "24時間制"):
            self.assertTrue(self.dialog.wait(**radio(caption), which=lambda node: "checked" in node.states), caption)
        self.page("ロール")
        self.assertTrue(self.is_on(radio("ロール機能を使用する")))
        self.assertFalse(self.is_on(check("バッテリー監視（AC電源時は無効）")))
        self.assertTrue(self.is_on(check("メモリー監視")))
        self.assertEqual(self.dialog.wait(role="spin box", name="交換速度").value, 3)
        self.page("時報")
        self.assertTrue(self.is_on(radio("利用しない")))
        self.dialog.wait(role="combo box", name="人の掛け声", showing=True)  # its name is the current item


class Dialog(SettingsCase):
    def test_each_option_is_seen_on_the_lines_when_it_is_applied(self):
        self.start()
        self.open()
        self.page("時計")
        for caption, upper, lower in (
                ("24時間制", DATE, "21時05分18秒"),
                ("西暦", "1998年11月15日(日曜日)", "21時05分18秒"),
                ("簡略表示", "1998/11/15(日)", "21:05:18"),
                ("英語", "11/15/1998 Sun.", "21:05:18"),
                ("12時間制", "11/15/1998 Sun.", "PM9:05:18"),
                ("標準表示", "11/15/1998 Sunday", "PM9:05:18"),
                ("古代日本", "寅年 霜月 十五日", "亥の一刻"),
                ("日本語", "1998年11月15日(日曜日)", "午後9時05分18秒"),
                ("平成", DATE, TIME)):
            self.click(radio(caption), button("適用"))
            wait_lines(self.app, upper=upper, lower=lower)

    def test_cancel_keeps_what_was_applied_and_drops_the_rest(self):
        self.start()
        self.open()
        self.page("時計")
        self.click(radio("英語"), button("適用"))
        wait_lines(self.app, upper="November 15,1998 Sunday")
        self.click(radio("古代日本"), button("キャンセル"))
        self.wait_closed()
        self.time.advance(10000)
        wait_lines(self.app, upper="November 15,1998 Sunday")
        self.quit()
        self.assertEqual(self.stored("Digital")["Language"], "1")
        self.assertNotIn("Roll", read_settings(self.session))

    def test_escape_drops_everything(self):
        self.start()
        self.open()
        self.page("時計")
        self.click(radio("英語"))
        self.session.hand.key("Escape")
        self.wait_closed()
        wait_lines(self.app, upper=DATE)

    def test_it_blocks_the_main_window_and_opens_beside_it(self):
        self.start()
        self.open()
        left, top, width, height = main_window(self.app).extents
        x, y, _, _ = self.dialog.extents
        self.assertFalse(left - 10 < x < left + width and top - 10 < y < top + height, (x, y))
        self.session.hand.click(main_window(self.app))
        self.page("ロール")  # done after the click, so the click has been processed
        self.dialog.wait(**radio("ロール機能を使用する"))
        self.assertIsNone(self.app.find(role="popup menu", name="メニュー", showing=True))

    def test_the_help_can_be_read_beside_it(self):
        self.start()
        self.open()
        self.click(button("ヘルプ"))
        name = "Tickwell ヘルプ"
        self.session.windows.wait(name=name, pid=self.app.program.pid)
        help_window = self.app.wait(name=name, showing=True, which=lambda node: "active" in node.states)
        help_window.wait(name="環境設定", which=lambda node: "selected" in node.states)
        self.session.hand.key("ctrl+f")
        help_window.wait(role="text", which=lambda node: "focused" in node.states and "editable" in node.states)
        self.session.hand.key("Escape")
        self.app.wait_gone(name=name, showing=True)
        self.click(button("キャンセル"))
        self.wait_closed()

    def test_the_silenced_notice_is_offered_again(self):
        self.start(settings={"Notice": {"NoCdDrive": "False"}})
        self.open()
        self.page("時報")
        self.click(check("CDドライブがないことを起動のときに知らせる"), button("OK"))
        self.wait_closed()
        self.quit()
        self.assertEqual(self.stored("Notice"), {"NoCdDrive": "True"})

    def test_a_damaged_roll_is_named_at_the_start(self):
        self.time = VirtualTime("1998-11-15T21:05:07")
        self.addCleanup(self.time.close)
        self.app = start_tickwell(self.session, settings={"Roll": {"Kinds": "clock"}}, virtual_time=self.time)
        box = self.app.wait(role="alert message", name="Tickwell スタートエラー", showing=True)
        self.assertTrue(box.find(role="label", name=lambda text: "[Roll] Kinds=clock" in text), box.dump())


class Login(SettingsCase):
    BOX = check("ログイン時に起動する")
    HARD = "100% \"mine\" it's $HOME `id` \\ ;#*時計"
    LOG_IN = "import sys; from gi.repository import Gio; Gio.DesktopAppInfo.new_from_filename(sys.argv[1]).launch([], None)"

    def setUp(self):
        super().setUp()
        self.entry = self.session.home / ".config/autostart/tickwell.desktop"

    def change(self, *buttons):
        self.open()
        self.click(self.BOX, *buttons)

    def test_the_program_starts_at_the_login_in_its_folder(self):
        self.folder = make_folder(self.session.directory / self.HARD)
        self.start(folder=self.folder)
        self.change(button("OK"))
        self.wait_closed()
        self.assertEqual(subprocess.run(["desktop-file-validate", self.entry], check=True, capture_output=True).stdout, b"")
        self.quit()
        self.session.spawn(["/usr/bin/python3", "-c", self.LOG_IN, self.entry])

        wait_for(lambda: self.runs_in(self.folder), "the program started at the login in its folder")

    def runs_in(self, folder):
        """Whether the program runs with this current folder."""
        expected = str(program_path().resolve()), str(folder)
        for pid in processes.marked(self.session.directory):
            try:
                if (os.readlink(f"/proc/{pid}/exe"), os.readlink(f"/proc/{pid}/cwd")) == expected:
                    return True
            except OSError:  # ended in the meantime
                pass
        return False

    def test_the_box_shows_and_changes_the_autostart(self):
        self.start()
        self.change(button("キャンセル"))
        self.wait_closed()
        self.assertFalse(self.entry.exists())
        self.change(button("適用"))
        wait_for(self.entry.exists, "the entry written")
        self.click(button("キャンセル"))
        self.wait_closed()
        self.open()
        self.assertTrue(self.is_on(self.BOX))
        self.click(self.BOX, button("OK"))
        self.wait_closed()
        self.assertFalse(self.entry.exists())

    def test_an_autostart_entry_that_cannot_be_written_is_reported(self):
        self.entry.parent.write_text("in the way", encoding="ascii")
        self.start()
        self.change(button("OK"))
        box = self.app.wait(role="alert message", showing=True)
        self.assertTrue(box.find(role="label", name=lambda text: str(self.entry) in text), box.dump())
        self.session.hand.click(box.wait(role="push button", name="OK"))
        self.click(button("キャンセル"))
        self.wait_closed()


MANY_ROWS = """WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 300000)
    INSERT INTO Kinenbi(Name, Year, Month, Day, Week) SELECT '記念日の名前' || i, 1900 + i % 90, i % 12 + 1, i % 31 + 1, 0 FROM n"""


class Database(SettingsCase):
    def test_the_windows_go_on_while_many_rows_are_compacted(self):
        folder = make_folder(self.session.directory / "folder")
        with contextlib.closing(sqlite3.connect(folder / "DayDate.mdb")) as database:
            database.execute(MANY_ROWS)
            database.commit()
        self.start(folder=folder)
        self.open()
        self.page("データベース")
        with keeps_answering(self.session, self.app.program, limit=2 * LONGEST, computing=True):  # the CPU may be shared
            self.click(button("データベースの最適化＞＞"))
            box = self.app.wait(role="alert message", name="データベースの最適化", showing=True)
        self.assertTrue(box.find(role="label", name=lambda text: text.startswith("データベースの最適化が終了しました。")), box.dump())
        self.session.hand.click(box.wait(role="push button", name="OK"))
        wait_for(lambda: self.dialog.find(**button("データベースの最適化＞＞")).enabled, "the button to be enabled again")
        self.assertIsNone(self.dialog.find(role="label", name="最適化しています…", showing=True))
        with contextlib.closing(sqlite3.connect(folder / "DayDate.mdb")) as database:
            self.assertEqual(database.execute("SELECT count(*) FROM Kinenbi").fetchone(), (300000,))

    def test_the_database_is_compacted_and_goes_on(self):
        self.start()
        self.open()
        self.page("データベース")
        self.click({"role": "push button", "name": "データベースの最適化＞＞"})
        box = self.app.wait(role="alert message", name="データベースの最適化", showing=True)
        self.assertTrue(box.find(role="label", name=lambda text: text.startswith("データベースの最適化が終了しました。")), box.dump())
        self.session.hand.click(box.wait(role="push button", name="OK"))
        folder = self.session.directory / "folder"
        self.assertFalse((folder / "CopyDate.mdb").exists() or (folder / "BUDate.mdb").exists())
        self.time.set_wall("1998-11-15T23:59:50")
        self.time.advance(20000)  # today's names are queried from it
        wait_lines(self.app, lower=TIME_BEHIND_MIDNIGHT)


if __name__ == "__main__":
    unittest.main()
