# SPDX-License-Identifier: GPL-3.0-or-later
"""The stopwatch: its window, its readings in the main window, and its printed report."""

import re
import time
import unittest
from pathlib import Path

from driver.answering import keeps_answering
from driver.boxes import RUN_TIME_ERROR, close_box
from driver.case import TickwellCase
from driver.cups import PRINTER, Cups
from driver.tickwell import lines, start_tickwell, wait_lines, wait_on_screen
from driver.tool_windows import button, choose, press, wait_window
from driver.virtual_time import VirtualTime
from driver.waiting import wait_for

START_UP_DELAY = 11000  # ms
TITLE = "ストップウォッチ"
OPERATION = "操作ｳｨﾝﾄﾞｳの表示"
READING = re.compile(r"(\d+):(\d\d)'(\d\d)\"(\d\d\d)")
LATE = 250  # ms; the latest tick on a machine under load
ASKED = "ラップ情報などを印刷します。\n準備はよろしいですか？"
MARGIN = 15 / 25.4 * 72  # points; blank margin of the report on each side
ZERO = "0:00'00\"000"


def milliseconds(text):
    hours, minutes, seconds, rest = map(int, READING.search(text).groups())
    return ((hours * 60 + minutes) * 60 + seconds) * 1000 + rest


def now():
    """Milliseconds of the clock that the tests measure with."""
    return time.clock_gettime(time.CLOCK_BOOTTIME) * 1000


class StopwatchCase(TickwellCase):
    def start(self, **options):
        self.time = VirtualTime("1998-11-15T21:05:07", 307000)
        self.addCleanup(self.time.close)
        self.app = start_tickwell(self.session, settings={"SetUp": {"Function": "2"}}, virtual_time=self.time,
                                  **options)
        wait_lines(self.app, upper="Tickwell Ver.2", lower="")
        wait_on_screen(self.session, self.app)
        self.time.advance(START_UP_DELAY)
        wait_lines(self.app, upper=TITLE, lower=ZERO)
        self.open()

    def open(self):
        choose(self.session, self.app, OPERATION)
        self.window = wait_window(self.app, TITLE)

    def press(self, caption, then):
        """Presses a button and waits for the caption that shows its effect."""
        press(self.window, caption)
        button(self.window, then)

    def lap(self):
        listed = self.list()
        press(self.window, "ラップ")
        wait_for(lambda: self.list() != listed, "the lap in the list")

    def list(self):
        return self.window.find(role="text").text


class Readings(StopwatchCase):
    def test_a_run_with_laps_stop_and_reset(self):
        self.start()
        self.press("スタート", "ストップ")
        self.time.advance(1234)
        wait_lines(self.app, upper=TITLE, lower="0:00'01\"234")
        self.lap()
        wait_lines(self.app, upper="Lapse1  0:00'01\"234")
        self.time.advance(60000)
        self.lap()
        wait_lines(self.app, upper="Lapse2  0:01'01\"234", lower="0:01'01\"234")
        self.press("ストップ", "スタート")
        self.time.advance(5000)
        wait_lines(self.app, lower="0:01'01\"234")
        self.assertEqual(self.list(), "Lapse1  0:00'01\"234\nLapse2  0:01'01\"234\n【Stop】 0:01'01\"234")
        self.press("スタート", "ストップ")
        self.time.advance(766)
        wait_lines(self.app, lower="0:01'02\"000")
        self.press("ストップ", "スタート")
        press(self.window, "リセット")
        wait_lines(self.app, upper=TITLE, lower=ZERO)
        self.assertEqual(self.list(), "")
        self.assertEqual(self.app.program.output(), "")

    def test_closed_and_opened_again_while_it_runs(self):
        self.start()
        self.press("スタート", "ストップ")
        self.time.advance(1000)
        self.lap()
        self.session.windows.close_window(self.session.windows.wait(name=TITLE))
        wait_for(lambda: not self.window.showing, "the window closed")
        self.time.advance(1000)
        wait_lines(self.app, lower="0:00'02\"000")
        self.open()
        button(self.window, "ストップ")
        button(self.window, "ラップ")
        self.assertEqual(self.list(), "Lapse1  0:00'01\"000")

    def test_started_under_the_clock_it_comes_to_the_main_window(self):
        self.start()
        choose(self.session, self.app, "ﾃﾞｼﾞﾀﾙ時計")
        wait_lines(self.app, upper=lambda text: text.startswith("平成10年"))
        self.time.advance(1000)
        self.press("スタート", "ストップ")
        wait_lines(self.app, upper=TITLE)
        self.time.advance(3000)
        wait_lines(self.app, upper=TITLE, lower="0:00'03\"000")

    def test_it_goes_on_unseen(self):
        self.start()
        self.press("スタート", "ストップ")
        choose(self.session, self.app, "ﾃﾞｼﾞﾀﾙ時計")
        self.time.advance(5000)
        wait_lines(self.app, upper=lambda text: text.startswith("平成10年"))
        choose(self.session, self.app, "ｽﾄｯﾌﾟｳｫｯﾁ")
        wait_lines(self.app, upper=TITLE, lower="0:00'05\"000")

    def test_the_window_works_by_keyboard(self):
        self.start()
        self.session.windows.wait(name=TITLE)
        wait_for(lambda: "active" in self.window.states, "the window with the keys")
        self.session.hand.key("Return")
        button(self.window, "ストップ")
        self.time.advance(1000)
        self.session.hand.key("Tab", "space")
        wait_lines(self.app, upper="Lapse1  0:00'01\"000")
        self.session.hand.key("Escape")
        wait_for(lambda: not self.window.showing, "the window closed")


class RealTime(TickwellCase):
    def test_a_real_minute(self):
        app = start_tickwell(self.session, settings={"SetUp": {"Function": "2"}})
        wait_on_screen(self.session, app)
        wait_lines(app, upper=TITLE, lower=ZERO, timeout=60)
        choose(self.session, app, OPERATION)
        window = wait_window(app, TITLE)
        earliest = now()
        press(window, "スタート")
        button(window, "ストップ")
        latest = now()
        readings = 0
        reopened = False
        while now() < latest + 60000:
            before = now()
            _, lower = lines(app)
            after = now()
            reading = milliseconds(lower)
            self.assertGreaterEqual(reading, before - latest - LATE)
            self.assertLessEqual(reading, after - earliest)
            readings += 1
            if not reopened and before > latest + 20000:
                reopened = True
                self.session.windows.close_window(self.session.windows.wait(name=TITLE))
                wait_for(lambda: not window.showing, "the window closed")
                choose(self.session, app, OPERATION)
                window = wait_window(app, TITLE)
                button(window, "ストップ")
        self.assertGreater(readings, 100)
        for number in (1, 2, 3):
            before = now()
            press(window, "ラップ")
            upper, _ = wait_lines(app, upper=lambda text, n=number: text.startswith(f"Lapse{n}  "))
            self.assertGreaterEqual(milliseconds(upper.split("  ")[1]), before - latest)
            self.assertLessEqual(milliseconds(upper.split("  ")[1]), now() - earliest)
        before = now()
        press(window, "ストップ")
        button(window, "スタート")
        stopped = window.find(role="text").text.split("\n")[-1]
        self.assertTrue(stopped.startswith("【Stop】 "), stopped)
        self.assertGreaterEqual(milliseconds(stopped), before - latest)
        self.assertLessEqual(milliseconds(stopped), now() - earliest)
        self.assertEqual(app.program.output(), "")


class Report(StopwatchCase):
    def ask(self):
        press(self.window, "印刷")
        return self.app.wait(role="alert message", name="印刷", showing=True)

    def print(self):
        press(self.ask(), "OK")
        self.app.wait_gone(role="label", name=ASKED, showing=True)

    def test_the_report_comes_out_of_the_default_printer(self):
        cups = Cups(self.session)
        self.addCleanup(cups.close)
        self.start(environment=cups.environment)
        self.press("スタート", "ストップ")
        for _ in range(3):
            self.time.advance(1000)
            self.lap()
        self.press("ストップ", "スタート")
        self.print()
        document, = cups.wait_documents(1)
        printed = [line.strip() for line in cups.text(document).split("\n") if line.strip()]
        seconds = START_UP_DELAY // 1000 + 3 + 7
        self.assertEqual(printed, [
            "Tickwell Ver.2 ストップウォッチ機能", "<<基本情報>>", "バージョン：2.0.0", "印刷日：1998年11月15日 日曜日",
            f"印刷時刻：21:05:{seconds}", "<<ラップ/経歴一覧表>>", "Lapse1 0:00'01\"000", "Lapse2 0:00'02\"000",
            "Lapse3 0:00'03\"000", "【Stop】 0:00'03\"000", "<<終>>"])
        fonts = cups.fonts(document)
        self.assertTrue(fonts)
        self.assertTrue(all(embedded for _, embedded in fonts), fonts)
        self.assertIn("Monapo", "".join(name for name, _ in fonts))
        boxes = cups.page_boxes(document)
        self.assertGreater(min(left for left, _, _, _ in boxes), MARGIN - 1)
        self.assertGreater(min(top for _, top, _, _ in boxes), MARGIN - 1)

    def test_a_long_list_takes_several_pages(self):
        cups = Cups(self.session)
        self.addCleanup(cups.close)
        self.start(environment=cups.environment)
        self.press("スタート", "ストップ")
        wait_for(lambda: "active" in self.window.states, "the window with the keys")
        self.session.hand.key("Tab", *["space"] * 150)
        wait_lines(self.app, upper=f"Lapse150  {ZERO}")
        self.print()
        document, = cups.wait_documents(1)
        text = cups.text(document)
        laps = re.findall(r"Lapse(\d+)", text)
        self.assertEqual(laps, [str(number) for number in range(1, 151)])
        self.assertGreater(text.count("\f"), 1)
        self.assertTrue(text.rstrip().endswith("<<終>>"))

    def test_a_queue_that_refuses_or_aborts_is_reported(self):
        cups = Cups(self.session)
        self.addCleanup(cups.close)
        self.start(environment=cups.environment)
        self.press("スタート", "ストップ")
        self.lap()
        cups.reject("棚卸し中")
        self.print()
        close_box(self.app, f"{RUN_TIME_ERROR}プリンター「{PRINTER}」は印刷を受け付けていません。\n理由：棚卸し中")
        self.assertEqual(self.list(), f"Lapse1  {ZERO}")
        cups.accept()
        cups.fail_jobs()
        self.print()
        close_box(self.app, f"{RUN_TIME_ERROR}プリンター「{PRINTER}」が印刷を中止しました。\n理由：")
        self.assertEqual(self.list(), f"Lapse1  {ZERO}")
        self.assertEqual(self.app.program.output(), "")

    def test_a_service_that_does_not_answer_blocks_nothing(self):
        cups = Cups(self.session)
        self.addCleanup(cups.close)
        self.start(environment=cups.environment)
        self.press("スタート", "ストップ")
        cups.stand_still()
        with keeps_answering(self.session, self.app.program):
            self.print()
            box = self.wait_waiting()
            self.time.advance(1000)
            wait_lines(self.app, lower="0:00'01\"000")
            self.lap()
            press(box, "中止")
            self.app.wait_gone(role="alert message", name="印刷", showing=True)
            self.assertEqual(self.helpers(), [])
            self.print()  # the next one waits as well
            self.wait_waiting()
        cups.go_on()
        self.app.wait_gone(role="alert message", name="印刷", showing=True)
        document, = cups.wait_documents(1)  # the cancelled one is not printed
        self.assertIn("Lapse1 0:00'01\"000", cups.text(document))
        self.assertEqual(self.app.find_all(role="alert message", showing=True), [])

    def wait_waiting(self):
        box = self.app.wait(role="alert message", name="印刷", showing=True)
        box.wait(role="label", name=lambda name: name.startswith("印刷サービスの応答を待っています。\n"))
        return box

    def helpers(self):
        """The names of the running processes that the program has started."""
        children = Path(f"/proc/{self.app.program.pid}/task/{self.app.program.pid}/children").read_text("ascii")
        return [name for name in map(self.name_of, children.split()) if name]

    @staticmethod
    def name_of(pid):
        """Empty if it has ended, even if its parent has not read its exit code yet."""
        try:
            stat = Path(f"/proc/{pid}/stat").read_text("utf-8")
        except OSError:
            return ""
        name, state = re.search(r"\((.*)\) (\S)", stat).groups()
        return "" if state in "ZX" else name

    def test_cancel_prints_nothing(self):
        cups = Cups(self.session)
        self.addCleanup(cups.close)
        self.start(environment=cups.environment)
        box = self.ask()
        self.assertTrue(box.find(role="label", name=ASKED), box.dump())
        self.session.hand.key("Escape")
        self.app.wait_gone(role="alert message", name="印刷", showing=True)
        self.print()  # the first document to be printed, even if the program ends in the meantime
        self.session.windows.close_window(wait_on_screen(self.session, self.app))
        self.assertEqual(self.app.program.wait_end(), 0)
        self.assertEqual(len(cups.wait_documents(1)), 1)

    def test_a_missing_print_service_is_reported_and_nothing_is_lost(self):
        self.start(environment={"CUPS_SERVER": str(self.session.directory / "no-socket")})
        self.press("スタート", "ストップ")
        self.time.advance(1000)
        self.lap()
        self.print()
        box = self.app.wait(role="alert message", name="Tickwell", showing=True)
        told = f"{RUN_TIME_ERROR}印刷サービス（CUPS）に接続できません。\n"
        self.assertTrue(box.find(role="label", name=lambda name: name.startswith(told)), box.dump())
        press(box, "OK")
        self.app.wait_gone(role="alert message", name="Tickwell", showing=True)
        self.assertEqual(self.list(), "Lapse1  0:00'01\"000")
        self.time.advance(1000)
        wait_lines(self.app, lower="0:00'02\"000")


if __name__ == "__main__":
    unittest.main()
