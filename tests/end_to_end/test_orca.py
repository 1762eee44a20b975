# SPDX-License-Identifier: GPL-3.0-or-later
"""A tour of the windows with the screen reader Orca: what a keyboard user hears."""

import unittest

from driver import screen_reader
from driver.cd_player import FORWARD, NEXT, PAUSE, PLAY, PREVIOUS, REWIND, STOP, CdCase
from driver.settings_case import SettingsCase, button
from driver.tickwell import tickwell_command
from driver.waiting import wait_for

# Keys, and what is said after each of them: parts of an utterance. Of menu items, Orca says only whether they are
# checked.
TIMER = (("Up", "1"), ("Tab", "分 0 spin button"), ("Tab", "秒後 15 spin button"),
         ("Tab", "指定時間が来たら繰り返す check box not checked"), ("space", "checked"),
         ("Tab", "スタート push button"), ("Tab", "リセット push button"), ("Tab", "一覧... push button"),
         ("Tab", "アラーム... push button"), ("Tab", "ヘルプ push button"))
STOPWATCH = (("Tab", "リセット push button"), ("Tab", "ラップ/経歴一覧表"), ("Tab", "印刷 push button"),
             ("Tab", "ヘルプ push button"))
TIMERS = (("Tab", "開始 push button"), ("Tab", "リセット push button"), ("Tab", "カップ麺 3分 push button"),
          ("Tab", "紅茶 4分 push button"), ("Tab", "ゆで卵 8分 push button"),
          ("Tab", "集中 25分／休憩 5分 push button"), ("Tab", "名前 text"), ("Tab", "時間 0 spin button"),
          ("Tab", "分 3 spin button"), ("Tab", "秒 0 spin button"), ("Tab", "音"), ("Tab", "ファイル... push button"),
          ("Tab", "試聴 push button"), ("Tab", "追加 push button"), ("Tab", "今の設定を登録... push button"),
          ("Tab", "ヘルプ push button"), ("Tab", "閉じる push button"), ("Tab", "メイン"))
ALARMS = (("Tab", "時刻（時） 7 spin button"), ("Tab", "分 0 spin button"), ("Tab", "名前 text"),
          ("Tab", "毎日"), ("Right", "平日"),
          ("Right", "曜日を選ぶ"), ("Tab", "月曜日 check box not checked"),
          ("space", "checked"), ("Tab", "火曜日 check box not checked"))
DATABASE = (("Tab", "データベースの最適化＞＞ push button"), ("Tab", "記念日を読み込む push button"),
            ("Tab", "記念日を書き出す push button"),
            ("Tab", "1日に1回、控えを取る（7日分と8週分） check box not checked"), ("Tab", "今ある控え"),
            ("Tab", "すべて書き出す... push button"), ("Tab", "書き出したものを読み込む... push button"),
            ("Tab", "記念日と休日の印をほかのコンピューターと合わせる check box not checked"),
            ("space", "フォルダー text"), ("Tab", "合わせるためのフォルダーを参照 push button"),
            ("Tab", "このコンピューターの名前 text"))
WRITING = (("Tab", "ｷｬﾝｾﾙ push button"), ("Tab", "iCalendar"), ("Right", "CSV"), ("Tab", "記念日 check box checked"),
           ("Tab", "祝日と振替休日 check box not checked"), ("space", "checked"), ("Tab", "祝日の最初の年 2026 spin button"),
           ("Tab", "祝日の最後の年 2027 spin button"), ("Tab", "カレンダーの印（休日、半日、平日） check box not checked"),
           ("Tab", "書き出す... push button"))
READING = (("Down", "句会、毎月 第2月曜、取り込む"), ("space", "取り込まない"),
           ("Down", "検診、2025年1月15日、取り込めません：6か月ごとの予定"), ("Tab", "全選択 push button"), ("Tab", "全解除 push button"),
           ("Tab", "表せない繰り返しは、今後1年分を1日ずつ取り込む check box not checked"),
           ("Tab", "取り込む push button"), ("Tab", "ｷｬﾝｾﾙ push button"), ("Tab", "検診"))
EVENTS = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//test//test//EN\r\n" + "".join(
    f"BEGIN:VEVENT\r\nUID:{name}\r\nDTSTART;VALUE=DATE:{start}\r\nRRULE:{rule}\r\nSUMMARY:{name}\r\nEND:VEVENT\r\n"
    for name, start, rule in (("結婚記念日", "20260610", "FREQ=YEARLY"), ("句会", "20260608", "FREQ=MONTHLY;BYDAY=2MO"),
                              ("検診", "20250115", "FREQ=MONTHLY;INTERVAL=6"))) + "END:VCALENDAR\r\n"
EDITOR = (("Tab", "月 11 spin button"), ("Tab", "日 15 spin button"), ("Tab", "毎年の記念日として指定する"),
          ("Down", "毎月の記念日として指定する"), ("Tab", "第?週の?曜日という形で指定する check box not checked"),
          ("Tab", "追加>> push button"), ("Tab", "ｷｬﾝｾﾙ push button"))


class Listening:
    """A test case whose session has the screen reader."""

    def setUp(self):
        super().setUp()
        self.reader = screen_reader.ScreenReader(self.session)

    def tour(self, steps):
        for key, text in steps:
            self.reader.forget()
            self.session.hand.key(key)
            self.reader.wait_said(text)


@unittest.skipUnless(screen_reader.is_installed(), "needs the package orca")
class Orca(Listening, SettingsCase):
    def open_window(self, name):
        arguments = ("--menu",) if name == "menu" else ("--open", name)
        self.assertEqual(self.session.spawn(tickwell_command(self.session, arguments=arguments)).wait_end(), 0)

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

    def open_from_timer(self, button, name):
        """Opens the list of timers or alarms, and forgets what is said about the way there."""
        self.start()
        self.open_window("timer")
        self.reader.wait_said("タイマー dialog", "時間 0 spin button")
        self.tour((("shift+Tab", "ヘルプ push button"), ("shift+Tab", "アラーム... push button")))
        if button == "一覧...":
            self.tour((("shift+Tab", "一覧... push button"),))
        self.session.hand.key("space")
        self.app.wait(role="dialog", name=name, showing=True, which=lambda node: "active" in node.states)

    def test_the_timers(self):
        self.open_from_timer("一覧...", "タイマー一覧")
        self.reader.wait_said("メイン")
        self.tour(TIMERS)

    def test_the_alarms(self):
        self.open_from_timer("アラーム...", "アラーム一覧")
        self.tour(ALARMS)

    def test_the_calendar_and_its_search(self):
        self.start()
        self.open_window("calendar")
        self.reader.wait_said("カレンダー dialog", "1998年11月15日 日曜日")
        self.tour((("Right", "1998年11月16日 月曜日"), ("Down", "1998年11月23日 月曜日")))

    def test_the_about_box(self):
        self.start()
        self.open_window("menu")
        self.reader.wait_said("カレンダー")
        self.tour((("Up", "終了"), ("Up", "バージョン情報")))
        self.session.hand.key("Return")
        self.reader.wait_said("Tickwellのﾊﾞｰｼﾞｮﾝ情報 dialog", "OK push button")
        self.tour((("Tab", "ｼｽﾃﾑ情報(S)... push button"), ("Tab", "連絡先 push button"),
                   ("Tab", "情報をコピー(C) push button"), ("Tab", "OK push button")))

    def test_the_help_is_read_out(self):
        self.start()
        self.open_window("timer")
        self.reader.wait_said("タイマー dialog", "時間 0 spin button")
        self.session.hand.key("F1")
        self.reader.wait_said("Tickwell ヘルプ dialog", "notification タイマー ﾀｲﾏｰ を選ぶと、下段に残り時間を表示します。")
        self.tour((("Tab", "notification 環境設定の「お知らせ」"), ("Tab", "notification タイマー一覧"),
                   ("Tab", "notification アラーム")))

    def test_the_book(self):
        self.start()
        self.open_window("calendar")
        self.reader.wait_said("カレンダー dialog", "1998年11月15日 日曜日")
        self.tour((("Tab", "通常表示"), ("Tab", "休/半日削除 push button"), ("Tab", "ヘルプ push button"),
                   ("Tab", "記念日の一覧を開く push button")))
        self.session.hand.key("space")
        self.app.wait(role="push button", name="記念日の一覧を閉じる")
        self.tour((("Tab", "記念日の一覧"), ("Tab", "追加 push button")))
        self.session.hand.key("space")
        self.reader.wait_said("記念日の追加 dialog", "記念日の名前 text")
        self.tour(EDITOR)

    def test_the_settings(self):
        self.start()
        self.open()
        self.reader.wait_said("文字表示 page tab")  # sometimes preceded by the name of the dialog
        self.tour((("Right", "時計 page tab"), ("Right", "ロール page tab"), ("Right", "時報 page tab"),
                   ("Tab", "時報音"), ("Down", "赤ちゃん")))


@unittest.skipUnless(screen_reader.is_installed(), "needs the package orca")
class OrcaAtTheDayData(Listening, SettingsCase):
    def setUp(self):
        super().setUp()
        self.start(wall="2026-11-23T12:00:00")
        self.open()
        self.page("データベース")

    def test_the_page(self):
        self.tour(DATABASE)

    def test_the_window_that_writes_files(self):
        self.click(button("記念日を書き出す"))
        self.window("記念日の書出")
        self.reader.wait_said("書き出す... push button")
        self.tour(WRITING)

    def test_the_window_that_reads_files(self):
        path = self.session.home / "days.ics"
        path.write_text(EVENTS, encoding="utf-8")
        self.click(button("記念日を読み込む"))
        chooser = self.window("記念日のファイル")
        wait_for(lambda: "active" in chooser.states, "the keyboard focus in the file dialog")
        self.session.hand.type(str(path))
        self.session.hand.key("Return")
        wait_for(lambda: self.time.advance(20) and self.app.find_all(
            role="label", name=lambda text: "選択 2件" in text, showing=True), "the sums of the events")
        self.reader.wait_said("結婚記念日")
        self.tour(READING)


@unittest.skipUnless(screen_reader.is_installed(), "needs the package orca")
class OrcaAtTheCdPlayer(Listening, CdCase):
    def test_the_buttons_that_can_be_pressed_are_read(self):
        self.start(self.folder / "three_tones.cue")
        self.wait_total(3, "0:12")
        self.reader.wait_said(f"{PLAY} push button")  # sometimes preceded by the name of the window
        self.tour((("Tab", f"{NEXT} push button"), ("Tab", f"{PREVIOUS} push button"), ("Tab", f"{PLAY} push button"),
                   ("space", f"{PAUSE} push button"), ("Tab", f"{STOP} push button"), ("Tab", f"{FORWARD} push button"),
                   ("Tab", f"{NEXT} push button"), ("Tab", f"{PREVIOUS} push button"),
                   ("Tab", f"{REWIND} push button")))


if __name__ == "__main__":
    unittest.main()
