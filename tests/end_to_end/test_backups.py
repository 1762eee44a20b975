# SPDX-License-Identifier: GPL-3.0-or-later
"""Backups: taken two minutes after the start and after midnight, restored by keyboard and mouse, exported and
imported; a full disk, a damaged copy, and kills.

TICKWELL_SEED repeats a test run."""

import os
import random
import resource
import shutil
import sqlite3
import threading
import unittest

from driver.boxes import close_box, wait_box
from driver.settings_case import SettingsCase, button, check
from driver.tickwell import lines, make_folder, read_settings, settings_path
from driver.tool_windows import press
from driver.waiting import wait_for

MINUTE = 60_000  # ms
START_UP_DELAY = 11000  # ms
TURN = 10_000  # ms
DAILY = {"Backup": {"Daily": "True"}}
BOX = check("1日に1回、控えを取る（7日分と8週分）")
RESTORE = button("この控えに戻す...")
EXPORT = button("すべて書き出す...")
IMPORT = button("書き出したものを読み込む...")
DELAY = 2 * MINUTE
KILLS = int(os.environ.get("TICKWELL_KILLS", "20")) // 4
SEED = int(os.environ.get("TICKWELL_SEED", random.randrange(2**32)))
WALL = "2026-11-22T21:05:07"


def rows(path):
    with sqlite3.connect(f"file:{path}?mode=ro", uri=True) as database:
        return database.execute("SELECT * FROM Kinenbi ORDER BY id").fetchall()


def add(path, name, month=11, day=22):
    with sqlite3.connect(path) as database:
        database.execute("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES (?,0,?,?,0)", (name, month, day))


def is_sound(path):
    with sqlite3.connect(f"file:{path}?mode=ro", uri=True) as database:
        return database.execute("PRAGMA integrity_check").fetchall() == [("ok",)]


class BackupsCase(SettingsCase):
    def setUp(self):
        super().setUp()
        self.folder = make_folder(self.session.directory / "days")
        self.file = self.folder / "DayDate.mdb"
        self.backups = self.folder / "Backup"

    def start_here(self, settings=None, wall=WALL):
        self.start(settings=settings, folder=self.folder, wall=wall)

    def names(self):
        return sorted(path.name for path in self.backups.iterdir()) if self.backups.exists() else []

    def wait_names(self, *names):
        wait_for(lambda: self.names() == list(names), f"the backups {names}")

    def open_page(self):
        self.open()
        self.page("データベース")

    def choose_folder(self, title, path):
        chooser = self.window(title)
        wait_for(lambda: "active" in chooser.states, "the keyboard focus in the file dialog")
        self.session.hand.type(str(path))
        self.session.hand.key("Return")
        self.app.wait_gone(role="dialog", name=title, showing=True)

    def box(self, text):
        return wait_box(self.app, text)

    def end_at_once(self):
        self.app.program.kill()
        self.time.close()


class Backups(BackupsCase):
    def test_none_is_taken_by_default(self):
        self.start_here()
        self.time.advance(24 * 60 * MINUTE)
        self.assertFalse(self.backups.exists())
        self.open_page()
        self.assertFalse(self.is_on(BOX))
        self.dialog.wait(role="label", name="今ある控え：なし", showing=True)
        self.assertNotIn("enabled", self.dialog.wait(**RESTORE).states)

    def test_two_minutes_after_the_start_and_after_midnight(self):
        add(self.file, "first")
        self.start_here(settings=DAILY)
        self.time.advance(DELAY - START_UP_DELAY - 1000)
        self.assertEqual(self.names(), [])
        self.time.advance(2000)
        self.wait_names("DayDate-2026-11-22.mdb")
        copy = self.backups / "DayDate-2026-11-22.mdb"
        self.assertEqual(rows(copy), rows(self.file))
        self.assertTrue(is_sound(copy))
        self.assertEqual(copy.stat().st_mode, self.file.stat().st_mode)
        add(self.file, "second")
        self.time.advance(3 * 60 * MINUTE)
        self.wait_names("DayDate-2026-11-22.mdb", "DayDate-2026-11-23.mdb")
        self.assertEqual(rows(self.backups / "DayDate-2026-11-23.mdb"), rows(self.file))
        add(self.file, "third")
        self.time.advance(24 * 60 * MINUTE)
        self.wait_names("DayDate-2026-11-22.mdb", "DayDate-2026-11-23.mdb", "DayDate-2026-11-24.mdb")
        self.assertEqual(self.app.program.output(), "")

    def test_the_keyboard_alone(self):
        self.start_here()
        self.open_page()
        hand = self.session.hand
        box = self.dialog.wait(**BOX)
        box.grab_focus()
        hand.key("space")
        wait_for(lambda: "checked" in box.states, "the box ticked")
        hand.key("Return")
        self.wait_closed()
        self.time.advance(DELAY)
        self.wait_names("DayDate-2026-11-22.mdb")
        before = rows(self.file)
        add(self.file, "later")
        self.open_page()
        self.dialog.wait(**BOX).grab_focus()
        hand.key("Tab")
        items = self.dialog.wait(role="list", name="今ある控え", showing=True)
        wait_for(lambda: "focused" in items.states or items.find(role="list item", name=lambda name: True).states,
                 "the focus in the list")
        self.dialog.wait(role="list item", name=lambda name: name.startswith("2026年11月22日（日）"))
        hand.key("Tab")
        restore = self.dialog.wait(**RESTORE)
        wait_for(lambda: "focused" in restore.states, "the focus on the button")
        hand.key("space")
        question = self.box("記念日、祝日、休日や半日の設定を、2026年11月22日の控えに戻します。")
        press(question, "OK")
        close_box(self.app, "2026年11月22日の控えに戻しました。")
        self.assertEqual(rows(self.file), before)
        self.assertIn("later", str(rows(self.folder / "DayDate.before-restore.mdb")))
        wait_for(lambda: "focused" in self.dialog.wait(**RESTORE).states, "the focus back on the button")
        hand.key("Escape")
        self.wait_closed()
        self.quit()
        self.assertEqual(read_settings(self.session)["Backup"]["Daily"], "True")

    def test_calendar_and_lines_follow(self):
        self.backups.mkdir()
        shutil.copy(self.file, self.backups / "DayDate-2026-11-21.mdb")
        add(self.file, "party")
        self.start_here()
        self.assertIn("party", self.upper_texts())
        self.choose("カレンダー")
        calendar = self.app.wait(role="dialog", name="カレンダー", showing=True)
        self.session.hand.click(calendar.wait(role="push button", name="記念日の一覧を開く"))
        calendar.wait(role="cell", name="party")
        self.open_page()
        self.click(RESTORE)
        press(self.box("記念日、祝日"), "OK")
        close_box(self.app, "2026年11月21日の控えに戻しました。")
        calendar.wait_gone(role="cell", name="party")
        self.assertNotIn("party", self.upper_texts())

    def upper_texts(self):
        """What the upper line shows in three turns."""
        texts = []
        for _ in range(3):
            self.time.advance(TURN)
            texts.append(lines(self.app)[0])
        return texts


class Faults(BackupsCase):
    def test_a_damaged_copy_is_named_and_nothing_is_lost(self):
        self.start_here(settings=DAILY)
        self.time.advance(DELAY)
        self.wait_names("DayDate-2026-11-22.mdb")
        copy = self.backups / "DayDate-2026-11-22.mdb"
        copy.write_bytes(copy.read_bytes()[:8000])
        add(self.file, "later")
        before = self.file.read_bytes()
        self.open_page()
        self.click(RESTORE)
        press(self.box("記念日、祝日"), "OK")
        close_box(self.app, "2026年11月22日の控えに戻せませんでした。")
        self.assertEqual(self.file.read_bytes(), before)
        self.assertFalse(list(self.folder.glob("*before*")))

    def test_a_full_disk_is_named_once_and_the_old_copies_stay(self):
        self.start_here(settings=DAILY)
        self.time.advance(DELAY)
        self.wait_names("DayDate-2026-11-22.mdb")
        add(self.file, "later")
        _, most = resource.prlimit(self.app.program.pid, resource.RLIMIT_FSIZE)
        resource.prlimit(self.app.program.pid, resource.RLIMIT_FSIZE, (5000, most))
        self.time.advance(3 * 60 * MINUTE)
        for _ in range(20):  # three attempts, each of which ends between two steps of time
            self.time.advance(MINUTE)
            if self.app.find(role="alert message", showing=True):
                break
        close_box(self.app, "今日の控えを取れませんでした。今までの控えはそのまま残っています。")
        self.wait_names("DayDate-2026-11-22.mdb")
        resource.prlimit(self.app.program.pid, resource.RLIMIT_FSIZE, (most, most))
        self.time.advance(24 * 60 * MINUTE)
        self.wait_names("DayDate-2026-11-22.mdb", "DayDate-2026-11-24.mdb")

    def test_kills_while_backups_are_restored(self):
        print("seed", SEED)
        chance = random.Random(SEED)
        for number in range(KILLS):
            self.start_here(settings=DAILY, wall=f"2026-11-{10 + number}T21:05:07")
            before = rows(self.file)
            add(self.file, f"row {number}")
            self.time.advance(DELAY)
            wait_for(self.names, "a backup")
            known = [before, rows(self.file)] + [rows(self.backups / name) for name in self.names()
                                                 if not name.startswith(".")]
            self.open_page()
            self.click(RESTORE)
            question = self.box("記念日、祝日")
            killer = threading.Timer(chance.uniform(0, 0.15), self.app.program.kill)
            killer.start()
            try:
                press(question, "OK")
            except Exception:  # pylint: disable=broad-except  # the program may be gone
                pass
            killer.join()
            self.end_at_once()
            self.assertTrue(is_sound(self.file))
            self.assertIn(rows(self.file), known)
            for name in self.names():
                if not name.startswith("."):
                    self.assertTrue(is_sound(self.backups / name), name)


class Everything(BackupsCase):
    def test_written_read_and_the_settings_at_the_next_start(self):
        target = self.session.directory / "stick"
        target.mkdir()
        add(self.file, "old one")
        self.start_here(settings={"SetUp": {"A_Size": "20"}})
        self.open_page()
        self.click(EXPORT)
        self.choose_folder("すべて書き出す", target)
        written = target / "Tickwell-2026-11-22"
        self.assertIn(str(written), self.box("次のフォルダーに書き出しました。").dump())
        close_box(self.app, "次のフォルダーに書き出しました。")
        self.assertEqual(sorted(path.name for path in written.iterdir()), ["DayDate.mdb", "TKW2.ini"])
        self.assertEqual(rows(written / "DayDate.mdb"), rows(self.file))
        exported = rows(self.file)
        add(self.file, "new one")
        ini = written / "TKW2.ini"
        ini.write_text(ini.read_text().replace("A_Size=20", "A_Size=30"))
        self.click(IMPORT)
        self.choose_folder("書き出したものを読み込む", written)
        press(self.box(str(written)), "OK")
        close_box(self.app, "書き出したものを読み込みました。設定は、次に起動したときに変わります。")
        self.assertEqual(rows(self.file), exported)
        self.assertIn("new one", str(rows(self.folder / "DayDate.before-restore.mdb")))
        self.session.hand.key("Escape")
        self.wait_closed()
        self.quit()
        self.assertEqual(read_settings(self.session)["SetUp"]["A_Size"], "20")
        self.time.close()
        self.start_here()
        self.assertEqual(read_settings(self.session)["SetUp"]["A_Size"], "30")
        self.assertFalse((self.folder / ".Import.ready").exists())
        kept = settings_path(self.session).with_name("TKW2.before-restore.ini")
        self.assertIn("A_Size=20", kept.read_text())
        self.quit()
        self.assertEqual(read_settings(self.session)["SetUp"]["A_Size"], "30")

    def test_a_folder_that_is_no_export_is_named(self):
        other = self.session.directory / "other"
        other.mkdir()
        before = self.file.read_bytes()
        self.start_here()
        self.open_page()
        self.click(IMPORT)
        self.choose_folder("書き出したものを読み込む", other)
        press(self.box(str(other)), "OK")
        self.assertIn(str(other / "TKW2.ini"), self.box("読み込めませんでした。何も変わっていません。").dump())
        close_box(self.app, "読み込めませんでした。")
        self.assertEqual(self.file.read_bytes(), before)


if __name__ == "__main__":
    unittest.main()
