# SPDX-License-Identifier: GPL-3.0-or-later
"""A tour of the windows with the screen reader Orca: what a keyboard user hears."""

import unittest

from driver import screen_reader
from driver.settings_case import SettingsCase
from driver.tickwell import tickwell_command

# Keys, and what is said after each of them: parts of an utterance. Of menu items, Orca says only whether they are
# checked.
TIMER = (("Up", "1"), ("Tab", "分 0 spin button"), ("Tab", "秒後 15 spin button"),
         ("Tab", "指定時間が来たら繰り返す check box not checked"), ("space", "checked"),
         ("Tab", "スタート push button"), ("Tab", "リセット push button"), ("Tab", "ヘルプ push button"))
STOPWATCH = (("Tab", "リセット push button"), ("Tab", "ラップ/経歴一覧表"), ("Tab", "印刷 push button"),
             ("Tab", "ヘルプ push button"))


@unittest.skipUnless(screen_reader.is_installed(), "needs the package orca")
class Orca(SettingsCase):
    def setUp(self):
        super().setUp()
        self.reader = screen_reader.ScreenReader(self.session)

    def open_window(self, name):
        arguments = ("--menu",) if name == "menu" else ("--open", name)
        self.assertEqual(self.session.spawn(tickwell_command(self.session, arguments=arguments)).wait_end(), 0)

    def tour(self, steps):
        for key, text in steps:
            self.reader.forget()
            self.session.hand.key(key)
            self.reader.wait_said(text)

    def test_the_clock_says_its_lines(self):
        self.start()
        self.open_window("menu")
        self.reader.wait_said("カレンダー")
        self.tour((("Down", "ﾃﾞｼﾞﾀﾙ時計 checked"), ("Down", "Windows時計"), ("Escape", "Tickwell frame")))
        self.reader.wait_said("平成10年11月15日(日曜日) 午後9時05分18秒")
        # Automatically after five seconds, and not before.
        for _ in range(5):
            self.time.advance(1000)
        self.reader.wait_said("平成10年11月15日(日曜日) 午後9時05分23秒")
        self.time.advance(1000)
        self.session.hand.key("Return")
        self.reader.wait_said("午後9時05分24秒")
        said = [text for text in self.reader.said() if "午後9時" in text]
        self.assertEqual([text.split()[-1] for text in said],
                         [f"午後9時05分{second}秒." for second in (18, 23, 24)])

    def test_the_menu_leads_through_its_items(self):
        self.start({"SetUp": {"Function": "1"}})
        self.open_window("menu")
        self.reader.wait_said("カレンダー")
        self.tour((("Down", "ﾃﾞｼﾞﾀﾙ時計."), ("Down", "Windows時計 checked"), ("Down", "ｽﾄｯﾌﾟｳｫｯﾁ"),
                   ("Up", "Windows時計 checked"), ("Up", "ﾃﾞｼﾞﾀﾙ時計."), ("Up", "カレンダー"),
                   ("Up", "終了"), ("Up", "バージョン情報")))

    def test_the_timer(self):
        self.start()
        self.open_window("timer")
        self.reader.wait_said("タイマー dialog", "タイマーの指定 panel", "時間 0 spin button")
        self.tour(TIMER)

    def test_the_stopwatch(self):
        self.start()
        self.open_window("stopwatch")
        self.reader.wait_said("ストップウォッチ dialog", "スタート push button")
        self.tour(STOPWATCH)
        self.tour([("shift+Tab", text) for _, text in reversed(STOPWATCH[:-1])])
        self.tour((("shift+Tab", "スタート push button"),))
        self.session.hand.key("space")
        self.app.wait(role="push button", name="ストップ")
        self.time.advance(61_234)
        self.tour((("Tab", "ラップ push button"), ("space", "Lapse1 0:01'01\"234")))

    def test_the_calendar_and_its_search(self):
        self.start()
        self.open_window("calendar")
        self.reader.wait_said("カレンダー dialog", "1998年11月15日 日曜日")
        self.tour((("Right", "1998年11月16日 月曜日"), ("Down", "1998年11月23日 月曜日")))

    def test_the_settings(self):
        self.start()
        self.open()
        self.reader.wait_said("文字表示 page tab")  # sometimes preceded by the name of the dialog
        self.tour((("Right", "時計 page tab"), ("Right", "ロール page tab"), ("Right", "時報 page tab"),
                   ("Tab", "時報音"), ("Down", "赤ちゃん")))


if __name__ == "__main__":
    unittest.main()
