# SPDX-License-Identifier: GPL-3.0-or-later
"""The battery as reported by UPower on a private bus, and by the kernel."""

import unittest

from gi.repository import GLib

from driver.case import TickwellCase
from driver.power import Machine, can_have_kernel_files
from driver.tickwell import start_tickwell, wait_lines
from driver.virtual_time import VirtualTime

START_UP_DELAY = 11000  # ms
READING = 10000
KERNEL = "37％残っています"


class BatteryCase(TickwellCase):
    def setUp(self):
        super().setUp()
        self.machine = Machine(self.session)
        self.addCleanup(self.machine.close)

    def start(self, wrap=lambda command: command):
        self.time = VirtualTime("2026-11-20T12:00:00")
        self.addCleanup(self.time.close)
        self.app = start_tickwell(self.session, settings={"SetUp": {"Function": "4"}}, virtual_time=self.time,
                                  environment=self.machine.environment, wrap=wrap)
        wait_lines(self.app, upper="Tickwell Ver.2")
        self.time.advance(START_UP_DELAY)

    def wait_readings(self, *texts):
        for text in texts:
            self.time.advance(READING)
            wait_lines(self.app, lower=text)


class Service(BatteryCase):
    def test_charge_and_time_take_turns_and_mains_is_shown(self):
        self.machine.start_service(on_battery=True)
        self.start()
        wait_lines(self.app, upper="バッテリー残量", lower="80％残っています")
        self.wait_readings("あと 1時間30分です", "80％残っています", "あと 1時間30分です")
        self.machine.show_battery(79.0, 0)
        self.wait_readings("79％残っています", "79％残っています")
        self.machine.set_on_battery(False)
        self.wait_readings("AC電源を使用中です", "AC電源を使用中です")


@unittest.skipUnless(can_have_kernel_files(), "this machine lets no program have kernel files of its own")
class ServiceAndKernel(BatteryCase):
    """The kernel reports a battery at 37 % without a remaining time."""

    def setUp(self):
        super().setUp()
        self.machine.kernel_tells(capacity=37)

    def start(self):
        super().start(wrap=self.machine.with_kernel_files)

    def test_a_service_that_appears_ends_and_reports_nonsense(self):
        self.start()
        wait_lines(self.app, upper="バッテリー残量", lower=KERNEL)
        self.machine.start_service(on_battery=True)
        self.wait_readings("あと 1時間30分です", "80％残っています")
        for value in (GLib.Variant("d", 250.0), GLib.Variant("d", float("nan")), GLib.Variant("s", "80"),
                      GLib.Variant("ad", [80.0])):
            with self.subTest(value=value):
                self.machine.set_device("Percentage", value)
                self.wait_readings(KERNEL)
                self.machine.show_battery(80.0, 0)
                self.wait_readings("80％残っています")
        self.machine.kernel_tells()
        self.machine.set_device("Percentage", GLib.Variant("d", -7.0))
        self.wait_readings("AC電源を使用中です")
        for percent in (78.0, 77.0):  # either text of the rotation may be next
            self.machine.show_battery(percent, 2**63 - 1)
            self.wait_readings(f"{percent:.0f}％残っています")
        self.machine.service.stop()
        self.wait_readings("電源が不明です")
        self.machine.kernel_tells(capacity=37)
        self.wait_readings(KERNEL)


if __name__ == "__main__":
    unittest.main()
