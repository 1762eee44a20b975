# SPDX-License-Identifier: GPL-3.0-or-later
"""Window placement: side by side near the clock, with frames on the screen."""

import itertools
import unittest

from driver.case import TickwellCase
from driver.managed_window import ManagedWindow
from driver.tickwell import start_tickwell, wait_lines, wait_on_screen
from driver.tool_windows import choose, wait_for_hand
from driver.virtual_time import VirtualTime
from driver.waiting import steady

START_UP_DELAY = 11000  # ms
SCREEN = (1280, 1024)
OPERATION = "操作ｳｨﾝﾄﾞｳの表示"
# Menu items in the order of use, and the title of the window that each opens.
STEPS = (("ｽﾄｯﾌﾟｳｫｯﾁ", None), (OPERATION, "ストップウォッチ"), ("ﾀｲﾏｰ", "タイマー"), ("CDﾌﾟﾚｰﾔｰ", None),
         (OPERATION, "CDプレーヤー"), ("カレンダー", "カレンダー"), ("バージョン情報", "Tickwellのﾊﾞｰｼﾞｮﾝ情報"),
         ("環境設定", "環境設定"))


class PlacingTests:
    def start(self, left, top):
        self.time = VirtualTime("2026-11-20T12:00:00")
        self.addCleanup(self.time.close)
        place = {"Win_Left": str(left * 15), "Win_Top": str(top * 15)}
        self.app = start_tickwell(self.session, settings={"SetUp": place}, virtual_time=self.time)
        wait_lines(self.app, upper="Tickwell Ver.2")
        clock = wait_on_screen(self.session, self.app)
        self.time.advance(START_UP_DELAY)
        return clock

    def frame(self, xid):
        window = ManagedWindow(self.session, xid)
        self.addCleanup(window.close)
        return steady(window.frame, "a window at rest")

    def test_no_window_covers_another(self):
        frames = {"Tickwell": self.frame(self.start(*self.place))}
        for caption, title in STEPS:
            choose(self.session, self.app, caption)
            if title:
                frames[title] = self.frame(wait_for_hand(self.session, self.app, title))
        for name, (left, top, right, bottom) in frames.items():
            with self.subTest(on_screen=name):
                self.assertTrue(0 <= left and right <= SCREEN[0] and 0 <= top and bottom <= SCREEN[1], frames[name])
        for (name, frame), (other, taken) in itertools.combinations(frames.items(), 2):
            with self.subTest(window=name, other=other):
                self.assertFalse(overlap(frame, taken), (frame, taken))


def overlap(one, other):
    return one[0] < other[2] and other[0] < one[2] and one[1] < other[3] and other[1] < one[3]


class Openbox(PlacingTests, TickwellCase):
    place = (0, 0)


class Xfwm4(PlacingTests, TickwellCase):
    window_manager = ("xfwm4", "--compositor=off")
    place = (1100, 980)


if __name__ == "__main__":
    unittest.main()
