# SPDX-License-Identifier: GPL-3.0-or-later
"""The countdown: its window, its reading in the main window, and its notice."""

import re
import time
import unittest
from pathlib import Path

from driver import samples
from driver.case import TickwellCase
from driver.hand import settled_extents
from driver.tickwell import lines, start_tickwell, wait_lines, wait_on_screen
from driver.tool_windows import button, choose, press, wait_for_hand
from driver.virtual_time import VirtualTime
from driver.waiting import wait_for

START_UP_DELAY = 11000  # ms
TITLE = "タイマー"
OVER = "指定の時間が経過しました"
OPERATION = "操作ｳｨﾝﾄﾞｳの表示"
REPEAT = "指定時間が来たら繰り返す"
READING = re.compile(r"0:00'00\"(\d\d\d)")
LATE = 250  # ms; the latest tick on a machine under load


def now():
    """Milliseconds of the clock that the tests measure with."""
    return time.clock_gettime(time.CLOCK_BOOTTIME) * 1000


def is_setting(window):
    """Whether this is the window that sets the timer; the notice has the same title."""
    return window.find(role="spin box") is not None


class CountdownCase(TickwellCase):
    def begin(self, virtual=True, function="3"):
        self.time = VirtualTime("1998-11-15T21:05:07", 307000) if virtual else None
        if virtual:
            self.addCleanup(self.time.close)
        self.app = start_tickwell(self.session, settings={"SetUp": {"Function": function}}, virtual_time=self.time)
        wait_on_screen(self.session, self.app)
        if virtual:
            self.time.advance(START_UP_DELAY)

    def start(self, virtual=True):
        self.begin(virtual)
        wait_lines(self.app, upper=TITLE, lower="0:00'15\"000", timeout=60)
        self.window = self.wait_setting()

    def wait_setting(self):
        window = self.app.wait(role="dialog", name=TITLE, showing=True, which=is_setting)
        wait_for_hand(self.session, self.app, TITLE)
        return window

    def notices(self):
        """The visible notices."""
        return self.app.find_all(role="dialog", name=TITLE, showing=True, which=lambda node: not is_setting(node))

    def wait_notice(self):
        return wait_for(self.notices, "the notice")[0]

    def spin(self, name):
        return self.window.wait(role="spin box", name=name)

    def set_seconds(self, seconds):
        self.spin("秒後").set_value(seconds)
        wait_lines(self.app, lower=f"0:00'{seconds:02}\"000")

    def press(self, caption, then):
        press(self.window, caption)
        button(self.window, then)

    def repeat(self):
        box = self.window.wait(role="check box", name=REPEAT)
        x, y, _, height = settled_extents(box)
        self.session.hand.click((x + 8, y + height // 2))
        wait_for(lambda: "checked" in box.states, "the repeat")


class Countdown(CountdownCase):
    def test_it_counts_down_to_its_notice(self):
        self.start()
        self.set_seconds(20)
        self.press("スタート", "ストップ")
        self.assertFalse(self.spin("秒後").enabled)
        self.time.advance(5001)
        wait_lines(self.app, upper=TITLE, lower="0:00'14\"999")
        self.time.advance(14999)
        notice = self.wait_notice()
        self.assertTrue(notice.find(role="label", name=OVER), notice.dump())
        wait_lines(self.app, upper=OVER, lower="0:00'20\"000")
        button(self.window, "スタート")
        self.assertTrue(self.spin("秒後").enabled)
        press(notice, "確認")
        wait_for(lambda: not self.notices(), "the notice closed")
        self.assertEqual(self.app.program.output(), "")

    def test_a_pause_is_not_counted(self):
        self.start()
        self.press("スタート", "ストップ")
        self.time.advance(5000)
        self.press("ストップ", "スタート")
        self.time.advance(60000)
        self.press("スタート", "ストップ")
        self.time.advance(1)
        wait_lines(self.app, lower="0:00'09\"999")

    def test_zero_becomes_fifteen(self):
        self.start()
        self.set_seconds(1)
        self.spin("秒後").set_value(0)
        wait_lines(self.app, lower="0:00'15\"000")
        self.assertEqual(self.spin("秒後").value, 15)

    def test_ten_cycles_without_drift_and_one_notice(self):
        self.start()
        self.set_seconds(1)
        self.repeat()
        self.press("スタート", "ストップ")
        self.time.advance(1000)
        notice = self.wait_notice()
        wait_lines(self.app, upper="ループ 1回目です")
        self.time.advance(9000)
        wait_lines(self.app, upper="ループ 10回目です", lower="0:00'00\"000")
        self.assertEqual(self.notices(), [notice])
        self.time.advance(1)
        wait_lines(self.app, lower="0:00'00\"999")
        press(notice, "確認")
        wait_for(lambda: not self.notices(), "the notice closed")
        self.time.advance(999)
        self.wait_notice()
        wait_lines(self.app, upper="ループ 11回目です")

    def test_unseen_the_notice_comes_alone(self):
        self.start()
        self.press("スタート", "ストップ")
        self.session.windows.close_window(self.session.windows.wait(name=TITLE))
        wait_for(lambda: not self.window.showing, "the window closed")
        choose(self.session, self.app, "Windows時計")
        wait_lines(self.app, upper="Windows使用時間")
        self.time.advance(15000)
        self.wait_notice()
        upper, lower = lines(self.app)
        self.assertEqual(upper, "Windows使用時間")
        self.assertRegex(lower, r"^05分\d\d秒$")
        self.assertFalse(self.window.showing)

    def test_chosen_from_the_menu_while_it_runs_it_goes_on(self):
        self.start()
        self.press("スタート", "ストップ")
        choose(self.session, self.app, "Windows時計")
        wait_lines(self.app, upper="Windows使用時間")
        self.time.advance(5000)
        choose(self.session, self.app, "ﾀｲﾏｰ")
        self.time.advance(1)
        wait_lines(self.app, upper=TITLE, lower="0:00'09\"999")

    def test_under_another_display_its_texts_are_temporary(self):
        self.start()
        choose(self.session, self.app, "ｽﾄｯﾌﾟｳｫｯﾁ")
        wait_lines(self.app, upper="ストップウォッチ", lower="0:00'00\"000")
        press(self.window, "リセット")
        wait_lines(self.app, upper=TITLE)
        self.time.advance(2000)
        wait_lines(self.app, upper="ストップウォッチ", lower="0:00'00\"000")
        choose(self.session, self.app, "ﾒﾓﾘｰ監視")
        wait_lines(self.app, upper="メモリー使用率")
        press(self.window, "リセット")
        wait_lines(self.app, upper=TITLE)
        self.time.advance(2000)
        wait_lines(self.app, upper="メモリー使用率", lower=lambda text: text.endswith("％使用中"))
        self.assertEqual(self.app.program.output(), "")

    def test_its_window_is_opened_from_the_menu(self):
        self.start()
        self.session.windows.close_window(self.session.windows.wait(name=TITLE))
        wait_for(lambda: not self.window.showing, "the window closed")
        choose(self.session, self.app, OPERATION)
        self.wait_setting()

    def test_the_end_of_the_program_takes_its_window_along(self):
        self.start()
        self.press("スタート", "ストップ")
        main = self.session.windows.wait(name="Tickwell", pid=self.app.program.pid)
        self.session.windows.close_window(main)
        self.assertEqual(self.app.program.wait_end(), 0)
        self.assertEqual(self.app.program.output(), "")


class Notice(CountdownCase):
    def test_it_comes_to_the_front_of_another_program(self):
        self.start()
        self.set_seconds(1)
        self.press("スタート", "ストップ")
        other = self.session.spawn(["/usr/bin/python3", Path(samples.__file__).parent / "window.py", "other", "0", "0",
                                    "1280", "1024", "336699"])
        other.wait_output("shown")
        covering = self.session.windows.wait(name="other")
        self.session.hand.click((1200, 1000))
        other.wait_output("pressed")
        self.time.advance(1000)
        notice = self.wait_notice()
        windows = self.session.windows

        def in_front():
            above = [window for window in windows.stacking() if window.name == TITLE]
            return above and windows.is_above(above[-1].xid, covering)
        wait_for(in_front, "the notice above the other program")
        wait_for(lambda: "active" in notice.states, "the notice with the keys")
        self.session.hand.key("Return")
        wait_for(lambda: not self.notices(), "the notice closed")


class RealTime(CountdownCase):
    def test_ten_real_cycles_do_not_drift(self):
        self.start(virtual=False)
        self.set_seconds(1)
        self.repeat()
        earliest = now()
        press(self.window, "スタート")
        button(self.window, "ストップ")
        latest = now()
        wait_lines(self.app, upper=lambda text: text.startswith("ループ 1回目"))
        self.wait_notice()
        for cycle in range(2, 13):
            wait_lines(self.app, upper=f"ループ {cycle}回目です")
            self.assertGreaterEqual(now(), earliest + cycle * 1000)
            self.assertEqual(len(self.notices()), 1)
        for _ in range(20):
            before = now()
            _, lower = lines(self.app)
            after = now()
            rest = int(READING.fullmatch(lower)[1])
            # A number of complete cycles minus the remaining time is the time since the first start.
            soonest, last = before - latest - LATE, after - earliest
            self.assertTrue(any(soonest <= cycle * 1000 - rest <= last for cycle in range(12, 120)),
                            (soonest, last, rest))
        self.assertEqual(self.app.program.output(), "")


if __name__ == "__main__":
    unittest.main()
