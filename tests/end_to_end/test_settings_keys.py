# SPDX-License-Identifier: GPL-3.0-or-later
"""The settings pages for the calendar of present-day Japan and for the corrections, operated with the keyboard alone
and read as by a screen reader."""

from driver.settings_case import SettingsCase
from driver.waiting import wait_for

CALENDAR_PAGE = [
    ("push button", "まとめて今の暦に合わせる"),
    ("radio button", "祝日の表を使う（従来どおり）"),
    ("push button", "祝日データを読み込む"),
    ("radio button", "平成のまま（従来どおり）"),
    ("check box", "六曜と旧暦の日付を知らせる"),
    ("check box", "二十四節気と雑節を知らせる"),
    ("check box", "古代日本の日付を旧暦にする"),
    ("radio button", "なし"),
]
CORRECTIONS_PAGE = [
    ("check box", "第?週の?曜日の記念日を、その日に知らせ、正しく編集・削除する"),
    ("check box", "編集の窓に、選んだ記念日の日付を入れる"),
    ("check box", "日付が変わったら、上段をすぐ新しい日付にする"),
    ("check box", "Windows使用時間を、24日を過ぎても正しく表示する"),
    ("check box", "検索で、月をまたぐ範囲の毎年の記念日も見つける"),
    ("check box", "ストップウォッチの一覧に、区間の時間も書く"),
    ("check box", "カレンダーで今日をいつも示す"),
    ("check box", "休日や半日の設定中に閉じても、印を保存する"),
    ("check box", "設定をOKですぐに保存する"),
]
IN_A_ROW = [("radio button", "なし")]  # options beside each other
ROLES = {"push button", "radio button", "check box"}
CALENDAR = dict.fromkeys(("HolidaysByLaw", "ErasByDate", "OldDate", "Seasons", "OldJapaneseOldDate"), "True")
CALENDAR["UnderDays"] = "1"
CORRECTIONS = dict.fromkeys(("WeekdayAnniversaries", "EditorTakesDate", "DateTurnsAtMidnight", "LongUsage",
                             "SearchAcrossMonths", "LapIntervals", "ShowsToday", "KeepsMarksOnClose",
                             "SavesImmediately"), "True")
BUTTONS = [("push button", name) for name in ("OK", "キャンセル", "適用", "ヘルプ")]


class SettingsKeys(SettingsCase):
    def to_page(self, number, control):
        """From the tab that has the focus, with the arrow key; the page shows `control`."""
        self.session.hand.key(*["Right"] * (number - self.at))
        self.dialog.wait(role=control[0], name=control[1], showing=True)
        self.at = number

    def focused(self):
        """Role and name of the control with the keyboard focus, None if it is a tab."""
        node = self.dialog.find(showing=True, which=lambda n: "focused" in n.states and n.role in ROLES)
        return node and (node.role, node.name)

    def go_through(self, controls):
        """Tab reaches the controls in this order. Each box is checked, and the second option of each group chosen."""
        for control in controls:
            self.session.hand.key("Tab")
            wait_for(lambda control=control: self.focused() == control, f"the focus at {control}")
            if control[0] == "check box":
                self.session.hand.key("space")
            elif control[0] == "radio button":
                self.session.hand.key("Right" if control in IN_A_ROW else "Down")

    def test_tab_follows_the_eye_and_keys_choose_everything(self):
        self.start()
        self.open()
        wait_for(lambda: "active" in self.dialog.states, "the keyboard focus in the settings")
        self.at = 0
        self.to_page(5, CALENDAR_PAGE[0])
        self.go_through(CALENDAR_PAGE)
        self.go_through(BUTTONS)
        self.session.hand.key("Tab")  # back at the tabs
        self.to_page(6, CORRECTIONS_PAGE[0])
        self.go_through(CORRECTIONS_PAGE)
        self.session.hand.key("Return")  # the default button
        self.wait_closed()
        self.quit()
        self.assertEqual(self.stored("Calendar"), CALENDAR)
        self.assertEqual(self.stored("Corrections"), CORRECTIONS)
