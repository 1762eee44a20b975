# SPDX-License-Identifier: GPL-3.0-or-later
"""Days off by law, the current era and the corrections, chosen in the settings."""

import os
import signal
from pathlib import Path

from driver.boxes import RUN_TIME_ERROR, close_box, wait_box
from driver.settings_case import SettingsCase, button, check, radio
from driver.tickwell import make_folder, read_settings, wait_lines
from driver.waiting import wait_for

OFFICIAL_LIST = Path(__file__).parents[1] / "data" / "holidays" / "syukujitsu.csv"
SUBSTITUTE = "2026-05-06T09:00:00"  # for the holiday on Sunday 3 May, three days later
BY_LAW = radio("法律に基づいて計算する（1948年7月20日～2100年）")
LIST_STATUS = "内閣府の祝日データ："


class TodaysJapan(SettingsCase):
    def setUp(self):
        super().setUp()
        self.folder = make_folder(self.session.home / "folder")

    def start(self, settings=None):
        super().start(settings, self.folder, SUBSTITUTE)
        self.time.advance(2000)

    def status(self):
        return self.dialog.wait(role="label", name=lambda name: name.startswith(LIST_STATUS), showing=True).name

    def read_list(self, path):
        self.click(button("祝日データを読み込む"))
        chooser = self.window("祝日データの読み込み")
        wait_for(lambda: "active" in chooser.states, "the keyboard focus in the file dialog")
        self.session.hand.type(str(path))
        self.session.hand.key("Return")
        self.app.wait_gone(role="dialog", name="祝日データの読み込み", showing=True)

    def test_one_button_chooses_todays_calendar(self):
        self.start()
        wait_lines(self.app, upper="平成38年5月6日(水曜日)")
        self.choose("カレンダー")
        calendar = self.app.wait(role="dialog", name="カレンダー", showing=True)
        calendar.wait(role="label", name="2026年（平成38年）5月", showing=True)
        self.open()
        self.page("暦")
        self.click(button("まとめて今の暦に合わせる"))
        close_box(self.app, "次のように設定しました。")
        self.assertTrue(self.is_on(BY_LAW))
        wait_lines(self.app, upper="平成38年5月6日(水曜日)")
        self.click(button("OK"))
        self.wait_closed()
        self.time.advance(2000)
        wait_lines(self.app, upper="令和8年5月6日(水曜日)")
        calendar.wait(role="label", name="2026年（令和8年）5月", showing=True)
        calendar.wait(role="check box", name="2026年5月6日 水曜日、振替休日、今日", showing=True)
        self.time.advance(10_000)
        wait_lines(self.app, upper="振替休日")

    def test_the_official_list_is_read_and_removed(self):
        self.start({"Calendar": {"HolidaysByLaw": "True"}})
        self.open()
        self.page("暦")
        self.assertEqual(self.status(), LIST_STATUS + "なし")
        moved = self.session.home / "moved.csv"
        moved.write_bytes(OFFICIAL_LIST.read_bytes().replace(b"2026/5/6,", b"2026/5/7,"))
        self.read_list(moved)
        close_box(self.app, "1955年～2027年（1067日）の祝日データを読み込みました。\n"
                            "法律に基づく計算と2か所違います。データの方を使います。\n"
                            "2026年5月6日：「振替休日」がデータにありません。\n")
        wait_for(lambda: self.status() == LIST_STATUS + "1955年～2027年（1067日）", "the list's years")
        self.assertEqual((self.folder / "Syukujitsu.csv").read_bytes(), moved.read_bytes())

        cut = self.session.home / "cut.csv"
        cut.write_bytes(OFFICIAL_LIST.read_bytes()[:-30])
        self.read_list(cut)
        box = wait_box(self.app, RUN_TIME_ERROR + "祝日データを読み込めません。\n" + str(cut) + "\n")
        box.find(role="push button").press_and_go()
        self.app.wait_gone(role="alert message", showing=True)
        self.assertEqual((self.folder / "Syukujitsu.csv").read_bytes(), moved.read_bytes())

        self.click(button("祝日データを取り除く"))
        wait_for(lambda: self.status() == LIST_STATUS + "なし", "no list")
        self.assertFalse((self.folder / "Syukujitsu.csv").exists())

    def test_settings_are_written_with_ok_if_chosen(self):
        self.start()
        self.open()
        self.page("動作")
        self.click(check("設定をOKですぐに保存する"), button("OK"))
        self.wait_closed()
        os.kill(self.app.program.pid, signal.SIGKILL)
        self.app.program.wait_end()
        stored = read_settings(self.session)
        self.assertEqual(stored["Corrections"], {"SavesImmediately": "True"})
        self.assertNotIn("Calendar", stored)

    def test_marks_are_kept_when_the_calendar_is_closed(self):
        self.start({"Corrections": {"KeepsMarksOnClose": "True"}})
        self.choose("カレンダー")
        calendar = self.app.wait(role="dialog", name="カレンダー", showing=True)
        self.click(radio("休日設定"), window=calendar)
        day = {"role": "check box", "name": "2026年5月12日 火曜日", "showing": True}
        self.click(day, window=calendar)
        calendar.wait(role="check box", name="2026年5月12日 火曜日、休日", showing=True)
        self.session.hand.key("Escape")
        self.wait_closed("カレンダー")
        self.choose("カレンダー")
        calendar = self.app.wait(role="dialog", name="カレンダー", showing=True)
        calendar.wait(role="check box", name="2026年5月12日 火曜日、休日", showing=True)
