# SPDX-License-Identifier: GPL-3.0-or-later
"""The alarms: their window, the notice, days off, and their file through restarts, kills and an older version.

TICKWELL_SEED repeats a test run."""

import os
import random
import sqlite3
import unittest
import wave

from driver.boxes import RUN_TIME_ERROR, close_box
from driver.case import TickwellCase
from driver.desktop import Session
from driver.sound_pipe import SoundPipe, sound_of
from driver.tickwell import make_folder, start_tickwell, wait_lines, wait_on_screen
from driver.tool_windows import button, choose, press, wait_for_hand, wait_window
from driver.virtual_time import VirtualTime
from driver.waiting import wait_for

START_UP_DELAY = 11000  # ms
MINUTE = 60_000
HOUR = 60 * MINUTE
KEYS_IGNORED = 2000  # ms
KILLS = int(os.environ.get("TICKWELL_KILLS", "20")) // 4
SEED = int(os.environ.get("TICKWELL_SEED", random.randrange(2**32)))
ALARM = "アラーム"
LIST = "アラーム一覧"
TIMER = "タイマー"
SKIP_NEXT = "次の1回だけ鳴らさない"
DAYS_OFF = "休みの日は鳴らさない"
AGAIN = "5分後にもう一度"
# Root bypasses permissions; without these capabilities it does not.
REFUSED = ["setpriv", "--bounding-set", "-dac_override,-dac_read_search"] if os.geteuid() == 0 else []


class AlarmsCase(TickwellCase):
    def setUp(self):
        super().setUp()
        self.folder = make_folder(self.session.directory / "alarms")
        self.file = self.folder / "Tools.db"

    def start(self, wall="1998-11-15T21:05:07", settings=None, **options):
        self.time = VirtualTime(wall, 307000)
        self.addCleanup(self.time.close)
        self.app = start_tickwell(self.session, folder=self.folder,
                                  settings={"SetUp": {"Function": "3"}} | (settings or {}),
                                  virtual_time=self.time, **options)
        wait_on_screen(self.session, self.app)
        self.time.advance(START_UP_DELAY)

    def notices(self):
        return self.app.find_all(role="dialog", name=ALARM, showing=True)

    def open_alarms(self):
        wait_lines(self.app, upper=TIMER, timeout=60)
        timer = self.app.wait(role="dialog", name=TIMER, showing=True,
                              which=lambda node: node.find(role="spin box") is not None)
        wait_for_hand(self.session, self.app, TIMER)
        press(timer, "アラーム...")
        self.alarms = wait_window(self.app, LIST)
        wait_for_hand(self.session, self.app, LIST)

    def set_time(self, digits):
        """With the keyboard, as hours and minutes of two digits each."""
        for name, number in (("時刻（時）", digits[:2]), ("分", digits[2:])):
            field = self.alarms.wait(role="spin box", name=name)
            field.grab_focus()
            self.session.hand.key("ctrl+a")
            self.session.hand.type(number)
            wait_for(lambda field=field, number=number: field.value == int(number), f"the number of {name}")

    def add(self, name, digits, *boxes):
        """Adds an alarm by keyboard and mouse; `boxes` are clicked before."""
        self.set_time(digits)
        field = self.alarms.wait(role="text", name="名前")
        field.grab_focus()
        self.session.hand.key("ctrl+a")
        self.session.hand.type(name)
        wait_for(lambda: field.text == name, "the name typed")
        for box in boxes:
            self.click_box(box)
        self.session.hand.click(button(self.alarms, "追加"))
        self.cell(name)

    def click_box(self, caption, role="check box"):
        box = self.alarms.wait(role=role, name=caption)
        before = "checked" in box.states
        self.session.hand.click(box)
        wait_for(lambda: ("checked" in box.states) != before, f"{caption} to change")

    def cell(self, text):
        self.alarms.wait(role="cell", name=text)

    def rows(self, columns="name, minute"):
        """The stored alarms."""
        with sqlite3.connect(f"file:{self.file}?mode=ro", uri=True) as database:
            return database.execute(f"SELECT {columns} FROM alarms ORDER BY id").fetchall()

    def close_alarms(self):
        press(self.alarms, "閉じる")
        self.app.wait_gone(role="dialog", name=LIST, showing=True)

    def wait_notice(self, *texts):
        notice = wait_for(lambda: self.notices(), "the notice")[0]
        for text in texts:
            notice.wait(role="list item", name=text)
        self.assertEqual(len(notice.find_all(role="list item")), len(texts), notice.dump())
        return notice

    def answer(self, notice, caption="確認"):
        press(notice, caption)
        self.wait_no_notice()

    def wait_no_notice(self):
        wait_for(lambda: not self.notices(), "the notice closed")

    def quit_at_once(self):
        """What was stored so far is all that the next start has."""
        self.app.program.kill()
        self.time.close()


class Alarms(AlarmsCase):
    def test_an_alarm_rings_at_its_time_and_again(self):
        self.start()
        self.open_alarms()
        self.assertFalse(self.file.exists())
        for title in ("名前", "時刻", "鳴らす日", "次に鳴る時", "状態"):
            self.assertTrue(self.alarms.find(role="column header", name=title), self.alarms.dump())
        self.add("wake", "2110")
        self.cell("今日 21:10")
        self.assertEqual(self.rows(), [("wake", 21 * 60 + 10)])
        self.close_alarms()
        self.time.advance(4 * MINUTE + 40_000)
        self.assertFalse(self.notices())
        self.time.advance(2000)
        self.answer(self.wait_notice("「wake」の時刻です（21:10）"), AGAIN)
        self.time.advance(4 * MINUTE)
        self.assertFalse(self.notices())
        self.time.advance(MINUTE)
        self.answer(self.wait_notice("「wake」の時刻です（21:10）"))
        self.time.advance(HOUR)
        self.assertFalse(self.notices())
        self.assertEqual(self.app.program.output(), "")

    def test_keys_reach_the_notice_after_two_seconds(self):
        self.start()
        self.open_alarms()
        self.add("wake", "2110")
        self.time.advance(4 * MINUTE + 42_000)
        notice = self.wait_notice("「wake」の時刻です（21:10）")
        wait_for(lambda: "focused" in button(notice, "確認").states, "the focus in the notice")
        self.session.hand.key("Return", "space", "Escape")
        line = notice.find(role="list item")
        self.session.hand.click(line)  # the keys have arrived when this has an effect
        wait_for(lambda: "selected" in line.states, "the line selected")
        self.time.advance(KEYS_IGNORED)
        self.wait_notice("「wake」の時刻です（21:10）")
        self.session.hand.key("Return")
        self.wait_no_notice()

    def test_a_day_off_is_silent(self):
        self.start(wall="1998-11-22T21:05:07")  # the next day, a Monday, is a holiday
        self.open_alarms()
        self.add("work", "0700", DAYS_OFF)
        self.cell("11/24(火) 7:00")
        self.click_box(DAYS_OFF)
        self.click_box("平日", role="radio button")
        self.add("always", "0730")
        self.cell("明日 7:30")
        self.close_alarms()
        self.time.advance(10 * HOUR)
        self.assertFalse(self.notices())
        self.time.advance(HOUR)
        self.answer(self.wait_notice("「always」の時刻です（7:30）"))
        self.time.advance(23 * HOUR)
        self.wait_notice("「work」の時刻です（7:00）")

    def test_the_next_one_is_skipped(self):
        self.start()
        self.open_alarms()
        self.add("wake", "2110")
        self.click_box(SKIP_NEXT)
        self.cell("明日 21:10")
        self.cell("入（1回休み）")
        self.assertEqual(self.rows("skipped"), [("1998-11-15",)])
        self.time.advance(5 * MINUTE)
        self.assertFalse(self.notices())
        wait_for(lambda: "checked" not in self.alarms.find(role="check box", name=SKIP_NEXT).states,
                 "the box of the next one to be clear")
        self.cell("入")
        self.time.advance(24 * HOUR)
        self.wait_notice("「wake」の時刻です（21:10）")

    def test_no_notice_while_the_menu_is_open(self):
        self.start()
        self.open_alarms()
        self.add("wake", "2110")
        self.close_alarms()
        choose(self.session, self.app, "Windows時計")
        self.session.hand.click(wait_for(lambda: self.app.find(role="label", showing=True), "the lines"))
        wait_for(lambda: self.app.menus, "the menu")
        self.time.advance(7 * MINUTE)
        self.assertTrue(self.app.menus)
        self.assertFalse(self.notices())
        self.session.hand.key("Escape")
        wait_for(lambda: not self.app.menus, "the end of the menu")
        self.time.advance(1000)
        self.wait_notice("「wake」の時刻です（21:10）")

    def test_a_machine_that_slept_and_a_clock_that_is_set_back(self):
        self.start()
        self.open_alarms()
        self.add("wake", "2110")
        self.time.suspend(8 * MINUTE)
        self.time.advance(1000)
        self.answer(self.wait_notice("「wake」の時刻です（21:10）"))
        self.time.set_wall("1998-11-15T21:00:00")
        self.cell("明日 21:10")
        self.time.advance(20 * MINUTE)
        self.assertFalse(self.notices())
        self.time.set_wall("1998-11-16T21:40:00")
        self.time.advance(1000)
        self.wait_notice("「wake」は30分前（21:10）に鳴るはずでした")

    def test_a_changed_and_removed_alarm_with_the_keyboard(self):
        self.start()
        self.open_alarms()
        self.add("wake", "2110")
        self.set_time("2200")
        change = button(self.alarms, "変更")
        change.grab_focus()
        self.session.hand.key("space")
        self.cell("今日 22:00")
        self.assertEqual(self.rows(), [("wake", 22 * 60)])
        remove = button(self.alarms, "削除")
        remove.grab_focus()
        self.session.hand.key("space")
        wait_for(lambda: self.rows() == [], "the alarm to be gone")
        wait_for(lambda: not self.alarms.find(role="cell", name="wake"), "the row to be gone")
        self.session.hand.key("Escape")
        self.app.wait_gone(role="dialog", name=LIST, showing=True)
        self.time.advance(24 * HOUR)
        self.assertFalse(self.notices())


class Sound(AlarmsCase):
    def ring(self, settings=None):
        """Lets an alarm of twelve seconds ring."""
        self.sound = SoundPipe(self.session)
        self.addCleanup(self.sound.close)
        self.start(settings=settings, environment=self.sound.environment)
        self.once = sound_of(self.folder / "TKW00.wav")
        self.open_alarms()
        self.alarms.find(role="spin box", name="鳴らす時間（秒）").set_value(12)
        self.add("wake", "2110")
        self.time.advance(4 * MINUTE + 42_000)
        return self.wait_notice("「wake」の時刻です（21:10）")

    def test_it_is_repeated_for_its_time(self):
        notice = self.ring()
        with wave.open(str(self.folder / "TKW00.wav")) as file:
            length = file.getnframes() * 1000 // file.getframerate()
        self.assertTrue(self.sound.take(self.once, "the sound"))
        heard = 1
        while heard * length < 12_000:
            self.time.advance(length)
            self.assertTrue(self.sound.take(self.once, f"the sound, {heard} times before"))
            heard += 1
        self.time.advance(MINUTE)
        wait_for(lambda: not self.sound.is_open(), "the end of the sound")
        self.assertEqual(self.sound.heard(), b"")
        self.answer(notice)

    def test_it_ends_with_the_answer(self):
        self.answer(self.ring())
        wait_for(lambda: not self.sound.is_open(), "the end of the sound")
        heard = len(self.sound.heard())
        self.assertLessEqual(heard, len(self.once))
        self.time.advance(MINUTE)
        self.assertEqual(len(self.sound.heard()), heard)

    def test_quiet_hours(self):
        self.answer(self.ring({"Quiet": {"Hours": "True", "From": "0", "To": "0", "Timer": "True"}}))
        self.assertEqual(self.sound.heard(), b"")


class SmallScreen(AlarmsCase):
    def make_session(self):
        return Session(self.window_manager, screen="1366x768x24", environment={"QT_SCALE_FACTOR": "2"})

    def test_the_window_scrolls_above_its_buttons(self):
        self.start()
        self.open_alarms()
        window = self.session.windows.settled_geometry(wait_for_hand(self.session, self.app, LIST))
        self.assertGreaterEqual(min(window.x, window.y), 0)
        self.assertLessEqual(window.x + window.width, 1366, window)
        self.assertLessEqual(window.y + window.height, 768, window)
        self.assertTrue(button(self.alarms, "閉じる").showing)
        self.assertTrue(self.alarms.find(role="scroll bar", showing=True), self.alarms.dump())


class Kept(AlarmsCase):
    def test_one_that_was_missed_is_told_once(self):
        self.start()
        self.open_alarms()
        self.add("wake", "2110")
        self.quit_at_once()
        self.start(wall="1998-11-15T21:35:20")
        notice = self.wait_notice("「wake」は25分前（21:10）に鳴るはずでした")
        self.assertFalse(notice.find(role="push button", name=AGAIN, showing=True))
        self.answer(notice)
        self.quit_at_once()
        self.start(wall="1998-11-15T21:45:00")
        self.open_alarms()
        self.cell("明日 21:10")
        self.assertFalse(self.notices())

    def test_one_that_was_missed_by_some_minutes_rings(self):
        self.start()
        self.open_alarms()
        self.add("wake", "2110")
        self.quit_at_once()
        self.start(wall="1998-11-15T21:17:00")
        notice = self.wait_notice("「wake」の時刻です（21:10）")
        self.assertTrue(notice.find(role="push button", name=AGAIN, showing=True))

    def test_kills_lose_nothing_that_was_shown(self):
        chance = random.Random(SEED)
        print(f"TICKWELL_SEED={SEED}")
        shown = 0
        for _ in range(KILLS):
            self.start()
            self.open_alarms()
            for _ in range(chance.randint(1, 3)):
                self.alarms.wait(role="text", name="名前").set_text("")
                press(self.alarms, "追加")
                shown += 1
                self.cell(f"アラーム{shown}")
            self.alarms.wait(role="text", name="名前").set_text("")
            press(self.alarms, "追加")  # killed while or before this one is stored
            self.quit_at_once()
            stored = self.rows()
            self.assertIn(len(stored), (shown, shown + 1))
            self.assertEqual(stored, [(f"アラーム{number}", 7 * 60) for number in range(1, len(stored) + 1)])
            shown = len(stored)

    def test_a_file_of_the_version_before_the_alarms(self):
        self.start()
        self.open_alarms()
        self.add("wake", "2110")
        self.quit_at_once()
        with sqlite3.connect(self.file) as database:  # as the version before left it
            database.execute("INSERT INTO timers VALUES(3, 'tea', 180000, '', 0, 'TKW00.wav', 3, 0, 0, 0, 0)")
            database.execute("DROP TABLE alarms")
            database.execute("PRAGMA user_version = 1")
        database.close()
        self.start()
        self.open_alarms()
        self.assertFalse(self.alarms.find(role="cell", name="wake"))
        self.add("sleep", "2300")
        self.assertEqual(self.rows(), [("sleep", 23 * 60)])
        with sqlite3.connect(f"file:{self.file}?mode=ro", uri=True) as database:
            self.assertEqual(database.execute("PRAGMA user_version").fetchall(), [(2,)])
            self.assertEqual(database.execute("SELECT id, name FROM timers").fetchall(), [(3, "tea")])
        self.assertFalse((self.folder / "Tools.damaged.db").exists())

    def test_a_file_that_cannot_be_written(self):
        self.start(wrap=lambda command: [*REFUSED, *command])
        self.open_alarms()
        self.add("wake", "2110")
        self.file.chmod(0o400)
        self.folder.chmod(0o500)
        self.addCleanup(self.folder.chmod, 0o700)
        press(self.alarms, "削除")
        close_box(self.app, RUN_TIME_ERROR)
        self.cell("wake")
        self.folder.chmod(0o700)
        press(self.alarms, "削除")
        wait_for(lambda: self.rows() == [], "the alarm to be gone")


if __name__ == "__main__":
    unittest.main()
