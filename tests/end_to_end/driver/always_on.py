# SPDX-License-Identifier: GPL-3.0-or-later
"""Running the program for days: its clock, date and time signal are checked every half hour."""

from driver.case import TickwellCase
from driver.sound_pipe import SoundPipe, sound_of
from driver.tickwell import start_tickwell, wait_lines, wait_on_screen
from driver.turned_machine import STYLES, TurnedMachine
from driver.virtual_time import VirtualTime

START_UP_DELAY = 11000  # ms
DISK_DRIVER = ("You are using the SDL disk i/o audio driver!", " Writing to file [")  # for each sound


class AlwaysOn(TickwellCase):
    def start(self, wall, tick=0, settings=None, at_pace=False):
        """Starts the clock with strikes on hours and half hours, and waits for the start-up delay. `at_pace`: the fake
        sound card takes as long as a real one."""
        self.sound = SoundPipe(self.session, at_pace)
        self.addCleanup(self.sound.close)
        time = VirtualTime(wall, tick)
        self.addCleanup(time.close)
        self.machine = TurnedMachine(time, wall, tick)
        given = {"Digital": STYLES, "SetUp": {"Clock_Int": "0", "Clock_File": "鳩時計の音"}} | (settings or {})
        self.app = start_tickwell(self.session, settings=given, virtual_time=time, environment=self.sound.environment)
        self.strike = sound_of(self.session.directory / "folder/TKW01.wav")
        wait_on_screen(self.session, self.app)
        self.machine.advance(START_UP_DELAY)
        self.check_lines()
        self.strikes = 0  # so far

    def check_lines(self):
        wait_lines(self.app, upper=lambda text: text in self.machine.days, lower=self.machine.clock)

    def check_chime(self):
        """Checks that the sound since the last check is exactly the strikes of the current time."""
        count = self.machine.strikes
        told = f"{count} strikes at {self.machine.now}"
        self.assertTrue(self.sound.take(self.strike * count, told), told)
        self.strikes += count

    def pass_half_hours(self, count):
        for _ in range(count):
            self.machine.to_half_hour()
            self.check_chime()
            self.check_lines()

    def check_silence(self):
        """Checks that there was no sound since the last check."""
        self.assertEqual(self.sound.heard(), b"")

    def is_sounding(self):
        return self.sound.is_open()

    def output(self):
        """The program's output without the messages of the disk audio driver."""
        lines = self.app.program.output().splitlines()
        return [line for line in lines if not any(said in line for said in DISK_DRIVER)]
