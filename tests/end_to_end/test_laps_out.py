# SPDX-License-Identifier: GPL-3.0-or-later
"""Laps leave the program: to the clipboard, to a CSV file, and without a printer to a PDF document."""

import csv
import io
import os
import random
import re
import resource
import subprocess
import unittest

from driver.boxes import RUN_TIME_ERROR, close_box, wait_box
from driver.case import TickwellCase
from driver.cups import Cups
from driver.tickwell import start_tickwell, wait_lines, wait_on_screen
from driver.tool_windows import button, choose, press, wait_window
from driver.virtual_time import VirtualTime
from driver.waiting import wait_for

START_UP_DELAY = 11000  # ms
TITLE = "ストップウォッチ"
SAVE, PDF = "ラップの一覧の保存", "PDFに保存"
HEADER = ["番号", "種類", "経過時間", "経過ミリ秒", "区間", "区間ミリ秒"]
NO_SAVE = f"{RUN_TIME_ERROR}ラップの一覧を保存できませんでした。\n"
REMEDY = "書き込めるフォルダーと、空き容量を確かめてください。"
REFUSED = ["setpriv", "--bounding-set", "-dac_override,-dac_read_search"] if os.geteuid() == 0 else []
OLD = "what was there before"


def reading(ms):
    return f"{ms // 3600000}:{ms // 60000 % 60:02}'{ms // 1000 % 60:02}\"{ms % 1000:03}"


class LapsOut(TickwellCase):
    def start(self, laps=(), **options):
        """Starts with laps after these times in ms; computes the rows that they are expected to give."""
        self.time = VirtualTime("1998-11-15T21:05:07", 307000)
        self.addCleanup(self.time.close)
        self.app = start_tickwell(self.session, settings={"SetUp": {"Function": "2"}}, virtual_time=self.time,
                                  **options)
        wait_on_screen(self.session, self.app)
        self.time.advance(START_UP_DELAY)
        wait_lines(self.app, upper=TITLE)
        choose(self.session, self.app, "操作ｳｨﾝﾄﾞｳの表示")
        self.window = wait_window(self.app, TITLE)
        self.rows, total = [HEADER], 0
        if laps:
            self.press("スタート", "ストップ")
        for number, lap in enumerate(laps, 1):
            self.time.advance(lap)
            press(self.window, "ラップ")
            total += lap
            wait_for(lambda text=f"Lapse{number}  {reading(total)}": text in self.list(), "the lap in the list")
            self.rows.append([str(number), "ラップ", reading(total), str(total), reading(lap), str(lap)])

    def press(self, caption, then):
        press(self.window, caption)
        button(self.window, then)

    def list(self):
        return self.window.find(role="text").text

    def clipboard(self):
        """Its text; empty while nothing was copied."""
        return subprocess.run(["xclip", "-selection", "clipboard", "-out"], env=self.session.environment,
                              capture_output=True, check=False, timeout=10).stdout.decode("utf-8")

    def choose_file(self, title, path):
        """Types a path into the file dialog."""
        dialog = self.app.wait(role="dialog", name=title, showing=True)
        wait_for(lambda: "active" in dialog.states, "the keyboard focus in the file dialog")
        self.session.hand.key("ctrl+a")
        self.session.hand.type(str(path))
        self.session.hand.key("Return")

    def save(self, path):
        press(self.window, "保存...")
        self.choose_file(SAVE, path)

    def wait_saved(self, path):
        self.app.wait_gone(role="dialog", name=SAVE, showing=True)
        wait_for(path.exists, "the file")
        self.assertEqual(self.app.find_all(role="alert message", showing=True), [])
        return path.read_bytes()

    def check_csv(self, raw):
        """Reads it as other programs do."""
        self.assertTrue(raw.startswith(b"\xef\xbb\xbf"))
        self.assertEqual(raw.count(b"\n"), raw.count(b"\r\n"))
        rows = list(csv.reader(io.StringIO(raw.decode("utf-8-sig"), newline=""), strict=True))
        self.assertEqual(rows, self.rows)

    def test_the_buttons_wait_for_a_lap(self):
        self.start()
        for caption in ("コピー", "保存..."):
            self.assertFalse(button(self.window, caption).enabled)
        self.press("スタート", "ストップ")
        press(self.window, "ラップ")
        for caption in ("コピー", "保存..."):
            wait_for(lambda caption=caption: button(self.window, caption).enabled, f"{caption} enabled")
        self.press("ストップ", "スタート")
        press(self.window, "リセット")
        for caption in ("コピー", "保存..."):
            wait_for(lambda caption=caption: not button(self.window, caption).enabled, f"{caption} disabled")

    def test_laps_are_copied_and_saved(self):
        generator = random.Random(5)
        self.start([generator.randrange(1, 20_000) for _ in range(12)])
        press(self.window, "コピー")
        wait_for(lambda: self.clipboard().startswith(HEADER[0]), "the clipboard")
        self.assertEqual([line.split("\t") for line in self.clipboard().splitlines()], self.rows)
        path = self.session.home / "my laps.csv"
        self.save(path)
        self.check_csv(self.wait_saved(path))
        self.assertEqual(self.app.program.output(), "")

    def test_the_keyboard_reaches_the_buttons(self):
        self.start([1234])
        wait_for(lambda: "active" in self.window.states, "the window with the keys")
        self.session.hand.key(*["Tab"] * 5, "space")  # start, lap, list, print, help, copy
        wait_for(lambda: self.clipboard().startswith(HEADER[0]), "the clipboard")
        self.session.hand.key("Tab", "space")
        path = self.session.home / "laps.csv"
        self.choose_file(SAVE, path.with_suffix(""))  # gets its suffix
        self.check_csv(self.wait_saved(path))

    def test_a_write_protected_folder(self):
        self.start([1234], wrap=lambda command: [*REFUSED, *command])
        folder = self.session.home / "protected"
        folder.mkdir()
        path = folder / "laps.csv"
        path.write_text(OLD)
        folder.chmod(0o555)
        self.addCleanup(folder.chmod, 0o755)
        self.save(path)
        self.app.wait(role="alert message", name=SAVE, showing=True)  # whether to replace it
        self.session.hand.key("alt+y")
        self.check_refused(path)

    def test_a_full_disk(self):
        self.start([1234])
        path = self.session.home / "laps.csv"
        path.write_text(OLD)
        self.limit(50)
        self.save(path)
        self.app.wait(role="alert message", name=SAVE, showing=True)
        self.session.hand.key("alt+y")
        self.check_refused(path)
        self.assertEqual(sorted(each.name for each in self.session.home.iterdir() if "laps" in each.name), ["laps.csv"])

    def limit(self, size):
        """No file of the program can grow beyond `size` bytes, as on a full disk."""
        _, most = resource.prlimit(self.app.program.pid, resource.RLIMIT_FSIZE)
        resource.prlimit(self.app.program.pid, resource.RLIMIT_FSIZE, (size, most))

    def check_refused(self, path):
        box = wait_box(self.app, f"{NO_SAVE}{path}\n")
        self.assertTrue(box.find(role="label", name=lambda name: name.endswith(REMEDY)), box.dump())
        close_box(self.app, NO_SAVE)
        self.assertEqual(path.read_text(), OLD)
        self.assertEqual(self.list(), f"Lapse1  {reading(1234)}")

    def test_without_a_printer_the_report_becomes_a_pdf(self):
        self.start([1234, 60_000], environment={"CUPS_SERVER": str(self.session.directory / "no-socket")})
        press(self.window, "印刷")
        press(self.app.wait(role="alert message", name="印刷", showing=True), "OK")
        box = wait_box(self.app, f"{RUN_TIME_ERROR}印刷サービス（CUPS）に接続できません。\n")
        press(box, "PDFに保存...")
        path = self.session.home / "report.pdf"
        self.choose_file(PDF, path)
        wait_for(path.exists, "the document")
        wait_for(lambda: button(self.window, "印刷").enabled, "the end of the printing")
        text = subprocess.run(["pdftotext", "-layout", path, "-"], capture_output=True, check=True).stdout.decode()
        printed = [re.sub(r"\s+", " ", line.strip()) for line in text.split("\n") if line.strip()]
        self.assertEqual(printed[0], "Tickwell Ver.2 ストップウォッチ機能")
        self.assertEqual(printed[-3:], ["Lapse1 0:00'01\"234", "Lapse2 0:01'01\"234", "<<終>>"])
        info = subprocess.run(["pdfinfo", path], capture_output=True, check=True).stdout.decode()
        self.assertIn("A4", info)
        self.assertEqual(self.app.find_all(role="alert message", showing=True), [])

    def test_a_pdf_that_cannot_be_written(self):
        self.start([1234], environment={"CUPS_SERVER": str(self.session.directory / "no-socket")})
        press(self.window, "印刷")
        press(self.app.wait(role="alert message", name="印刷", showing=True), "OK")
        box = wait_box(self.app, f"{RUN_TIME_ERROR}印刷サービス（CUPS）に接続できません。\n")
        path = self.session.home / "report.pdf"
        path.write_text(OLD)
        self.limit(3000)  # the helper inherits it; the report is shorter, its document is longer
        press(box, "PDFに保存...")
        self.choose_file(PDF, path)
        self.app.wait(role="alert message", name=PDF, showing=True)
        self.session.hand.key("alt+y")
        box = wait_box(self.app, f"{RUN_TIME_ERROR}PDFを保存できませんでした。\n{REMEDY}\n")
        self.assertTrue(box.find(role="label", name=lambda name: name.endswith(str(path))), box.dump())
        press(box, "OK")
        self.assertEqual(path.read_text(), OLD)

    def test_a_printer_that_refuses_offers_no_pdf(self):
        cups = Cups(self.session)
        self.addCleanup(cups.close)
        self.start([1234], environment=cups.environment)
        cups.reject("棚卸し中")
        press(self.window, "印刷")
        press(self.app.wait(role="alert message", name="印刷", showing=True), "OK")
        box = wait_box(self.app, RUN_TIME_ERROR)
        self.assertEqual([each.name for each in box.find_all(role="push button")], ["OK"])


if __name__ == "__main__":
    unittest.main()
