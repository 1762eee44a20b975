# SPDX-License-Identifier: GPL-3.0-or-later
"""A complete session under valgrind: each function, each window opened and closed, a chime, and the end. The program's
own code must not leak memory, nor read or write invalid memory."""

import re
import unittest
from pathlib import Path

from driver.calendar_hand import CalendarHand
from driver.case import TickwellCase
from driver.tickwell import SILENT, tickwell_command, wait_lines, write_settings
from driver.tool_windows import choose, press, wait_for_hand
from driver.virtual_time import VirtualTime

SUPPRESSIONS = Path(__file__).parent / "libraries.supp"
VALGRIND = ["valgrind", "--leak-check=full", "--show-leak-kinds=definite", "--errors-for-leak-kinds=definite",
            "--num-callers=30", f"--suppressions={SUPPRESSIONS}"]
START_UP_DELAY = 11000  # ms
WINDOWS = (("環境設定", "環境設定"), ("ﾍﾙﾌﾟ", "Tickwell ヘルプ"), ("バージョン情報", "Tickwellのﾊﾞｰｼﾞｮﾝ情報"))
FUNCTIONS = ("Windows時計", "ﾊﾞｯﾃﾘｰ監視", "ﾒﾓﾘｰ監視", "ｽﾄｯﾌﾟｳｫｯﾁ", "ﾀｲﾏｰ", "CDﾌﾟﾚｰﾔｰ")
OPERATION = "操作ｳｨﾝﾄﾞｳの表示"
WITH_A_WINDOW = {"ｽﾄｯﾌﾟｳｫｯﾁ": "ストップウォッチ", "ﾀｲﾏｰ": "タイマー", "CDﾌﾟﾚｰﾔｰ": "CDプレーヤー"}
BOOK = (("追加", "記念日の追加"), ("検索", "記念日の検索"), ("削除", "記念日の削除"))


class Leaks(TickwellCase):
    def start(self):
        write_settings(self.session, SILENT | {"SetUp": {"Clock_Int": "0"}})
        self.time = VirtualTime("1998-11-15T11:50:00")
        self.addCleanup(self.time.close)
        self.log = self.session.directory / "valgrind.log"
        command = [*VALGRIND, f"--log-file={self.log}", *tickwell_command(self.session, virtual_time=self.time)]
        program = self.session.spawn(command, pass_fds=self.time.pass_fds)
        self.time.started()
        self.app = self.session.wait_app(program)
        self.xid = wait_for_hand(self.session, self.app, "Tickwell")
        self.time.advance(START_UP_DELAY)
        wait_lines(self.app, lower="午前11時50分11秒")

    def close_window(self, title):
        """Closes a window like the button of its frame, as soon as it is shown."""
        features = {"name": title, "showing": True, "which": lambda node: node.role != "label"}
        self.app.wait(**features)
        self.session.windows.close_window(wait_for_hand(self.session, self.app, title))
        self.app.wait_gone(**features)

    def use_every_window(self):
        calendar = CalendarHand(self.session, self.app)
        calendar.open_list()
        calendar.mark("1998年11月16日")
        calendar.add("Feast")
        calendar.wait_added()
        for caption, title in BOOK:
            press(calendar.window, caption)
            self.close_window(title)
        calendar.close()
        for item, title in WINDOWS:
            choose(self.session, self.app, item)
            self.close_window(title)

    def use_every_function(self):
        for item in FUNCTIONS:
            choose(self.session, self.app, item)
            self.time.advance(START_UP_DELAY)
            if item in WITH_A_WINDOW:
                choose(self.session, self.app, OPERATION)
                self.close_window(WITH_A_WINDOW[item])

    def test_nothing_of_ours_is_lost(self):
        self.start()
        self.use_every_window()
        self.use_every_function()
        self.time.advance(15 * 60_000)  # includes a chime
        self.session.windows.close_window(self.xid)
        self.assertEqual(self.app.program.wait_end(), 0)
        told = re.sub(r"==\d+== ?", "", self.log.read_text(encoding="utf-8"))
        lost = re.search(r"definitely lost: ([\d,]+) bytes|(no leaks are possible)", told)
        errors = re.search(r"ERROR SUMMARY: ([\d,]+) errors", told)
        self.assertTrue(lost and errors, told)
        self.assertEqual((lost[1] or "0", errors[1]), ("0", "0"), told)
        print(f"\ndefinitely lost: {lost[1] or 0} of ours; errors: {errors[1]}", flush=True)


if __name__ == "__main__":
    unittest.main()
