# SPDX-License-Identifier: GPL-3.0-or-later
"""kill -9 at random moments while marks are set, anniversaries added, and settings changed and stored: everything
reported as stored is stored, nothing is stored in part, and the next start works.

TICKWELL_KILLS runs end that way; the default is 20. TICKWELL_SEED repeats a test run.
"""

import os
import random
import threading
import time
import unittest
from datetime import date

from gi.repository import GLib
from Xlib.error import XError

from driver.calendar_hand import CalendarHand, stored
from driver.case import TickwellCase
from driver.tickwell import SILENT, make_folder, read_settings, settings_path, tickwell_command, write_settings
from driver.tool_windows import button, choose, wait_for_hand, wait_window
from driver.virtual_time import VirtualTime

KILLS = int(os.environ.get("TICKWELL_KILLS", "20"))
SEED = int(os.environ.get("TICKWELL_SEED", random.randrange(2**32)))
START_UP_DELAY = 11000  # ms
SETTINGS = "環境設定"
WORKING_DAYS = [day for day in range(1, 32) if date(1998, 10, day).isoweekday() < 6]  # days off are marked differently
LARGEST_SPEED = 34
PATIENCE = 120.0  # s; limit of a complete run
LATE = 1.2  # random limits go up to 1.2 times a complete run, so some runs end normally

# Errors that a query can raise here when the queried program ends.
ENDED = (AssertionError, AttributeError, GLib.Error, XError, RuntimeError)


class Life:
    """One run of the program from its start to a normal end or a kill, and the data that it reported as stored."""

    def __init__(self, test, number, names, dates):
        """`names` and `dates`: the stored data at the start, if known."""
        self._session, self._test, self._number = test.session, test, number
        self.names, self.dates, self.speed = names, dates, None
        self._killed = threading.Event()
        self.next_name = self.next_date = None  # about to be stored

    def run(self, most):
        """Runs the program and kills it after `most` seconds; None for a complete run. Returns whether it ended
        normally."""
        virtual_time = VirtualTime("1998-10-15T09:00:00")
        program = self._session.spawn(tickwell_command(self._session, self._test.folder, virtual_time),
                                      pass_fds=virtual_time.pass_fds)

        def kill():
            self._killed.set()
            program.kill()
        killer = threading.Timer(most or PATIENCE, kill)
        killer.start()
        try:
            virtual_time.started()
            self._act(program, virtual_time)
        except ENDED:
            if most is None or not self._killed.is_set():
                raise
        finally:
            killer.cancel()
            killer.join()
            virtual_time.close()
        return program.exit_code == 0

    def _act(self, program, virtual_time):
        app = self._session.wait_app(program)
        window = wait_for_hand(self._session, app, "Tickwell")
        self._test.check_stored(self)
        virtual_time.advance(START_UP_DELAY)
        calendar = CalendarHand(self._session, app)
        calendar.open_list()
        for part in range(2):
            self._add(calendar, f"Day {self._number}.{part}")
            self._mark(calendar, WORKING_DAYS[(2 * self._number + part) % len(WORKING_DAYS)])
        calendar.close()
        self._set_speed(app, self._number % LARGEST_SPEED + 1)
        self._session.windows.close_window(window)
        program.wait_end()

    def _add(self, calendar, name):
        self.next_name = name
        calendar.add(name)
        calendar.wait_added()
        self._check_alive()
        self.names, self.next_name = self.names + [name], None

    def _mark(self, calendar, day):
        """Toggles the mark of a day."""
        self.next_date = f"1998-10-{day:02}"
        calendar.mark(f"1998年10月{day}日")
        self.dates, self.next_date = self.dates_after(), None

    def dates_after(self):
        return sorted(set(self.dates) ^ {self.next_date})

    def _set_speed(self, app, speed):
        choose(self._session, app, SETTINGS)
        dialog = wait_window(app, SETTINGS)
        dialog.wait(role="slider", name="ｽｸﾛｰﾙ速度").set_value(speed)
        self.speed = str(speed)
        button(dialog, "OK").press_and_go()
        app.wait_gone(role="dialog", name=SETTINGS, showing=True)
        self._check_alive()

    def _check_alive(self):
        """Fails if the program was killed: its windows disappear then, too, but nothing may have been stored."""
        if self._killed.is_set():
            raise RuntimeError("killed")


class Kills(TickwellCase):
    def setUp(self):
        super().setUp()
        self.folder = make_folder(self.session.directory / "days")
        write_settings(self.session, SILENT | {"SetUp": {"Op_Speed": "1"}})

    def check_stored(self, life):
        """Called when a run has started: everything that the previous run reported must be stored, and beyond that at
        most the item that it was about to store."""
        if self.before is None:
            return
        before, self.before = self.before, None
        names, dates = stored(self.folder)
        if before.next_name is not None and names[-1:] == [before.next_name]:
            before.names = before.names + [before.next_name]
            self.unsaid += 1
        if before.next_date is not None and dates != before.dates:
            before.dates = before.dates_after()
            self.unsaid += 1
        self.assertEqual((names, dates), (before.names, before.dates))
        life.names, life.dates = names, dates

    def check_settings(self, life, ended):
        """The settings file is complete: the old one or the one of the ended run; after a normal end always the
        latter."""
        speed = read_settings(self.session)["SetUp"]["Op_Speed"]
        self.assertIn(speed, {self.speed} if life.speed is None else {life.speed} if ended else {self.speed, life.speed})
        self.speed = speed
        temporary = [name for name in os.listdir(settings_path(self.session).parent) if name != "TKW2.ini"]
        self.assertLessEqual(len(temporary), 0 if ended else 1, temporary)  # each start removes the previous run's

    def test_everything_reported_as_stored_is_there(self):
        print(f"\nTICKWELL_SEED={SEED}", flush=True)
        chance = random.Random(SEED)
        self.before, self.speed, self.unsaid, self.killed = None, "1", 0, 0
        begun = time.monotonic()
        life = Life(self, 0, [], [])
        self.assertTrue(life.run(None))
        self.check_settings(life, True)
        whole = time.monotonic() - begun
        for number in range(1, KILLS + 1):
            # A run that was killed before it was queried has stored nothing, so the previous run still counts.
            self.before = self.before or life
            life = Life(self, number, life.names, life.dates)
            ended = life.run(chance.uniform(0, whole * LATE))
            self.killed += not ended
            self.check_settings(life, ended)
        self.before = self.before or life
        last = Life(self, KILLS + 1, [], [])
        self.assertTrue(last.run(None))
        self.check_settings(last, True)
        print(f"{KILLS} lives of up to {whole * LATE:.1f} s, {self.killed} of them killed; {len(last.names)} anniversaries "
              f"stored; {self.unsaid} times more than was said", flush=True)
        self.assertGreater(self.killed, KILLS // 3)
        self.assertGreater(len(last.names), KILLS // 4)


if __name__ == "__main__":
    unittest.main()
