# SPDX-License-Identifier: GPL-3.0-or-later
"""The battery, as UPower tells of it on a bus of the test's own."""

import unittest

from gi.repository import Gio, GLib

from driver import dbus_calls
from driver.case import TickwellCase
from driver.tickwell import start_tickwell, wait_lines
from driver.virtual_time import VirtualTime
from driver.waiting import wait_for

START_UP_DELAY = 11000  # ms
READING = 10000
SERVICE = "org.freedesktop.UPower"
ROOT = "/org/freedesktop/UPower"
BATTERY_TYPE, DISCHARGING = 2, 2


class Battery(TickwellCase):
    def start_service(self, on_battery):
        """A stand-in for UPower with one battery, on the session's bus, which is the system's for the program too."""
        self.bus = dbus_calls.connect(self.session.environment["DBUS_SESSION_BUS_ADDRESS"])
        self.addCleanup(self.bus.close_sync, None)
        self.service = self.session.spawn(
            ["/usr/bin/python3", "-m", "dbusmock", "--system", "--template", "upower",
             "--parameters", f'{{"OnBattery": {str(on_battery).lower()}}}'],
            environment=self.system_bus())
        wait_for(self.answers, "the power service")
        self.show_battery(80.0, 5400)

    def system_bus(self):
        return {"DBUS_SYSTEM_BUS_ADDRESS": self.session.environment["DBUS_SESSION_BUS_ADDRESS"]}

    def answers(self):
        self.service.check_running()
        try:
            self.call("org.freedesktop.DBus.Properties", "GetAll", GLib.Variant("(s)", (SERVICE,)))
            return True
        except GLib.Error:
            return False

    def call(self, interface, method, arguments):
        return self.bus.call_sync(SERVICE, ROOT, interface, method, arguments, None, Gio.DBusCallFlags.NONE, 5000,
                                  None)

    def show_battery(self, percent, seconds):
        """What the display device says: its type, state, charge and time."""
        values = (BATTERY_TYPE, DISCHARGING, percent, percent, 100.0, 10.0, seconds, 0, True, "battery", 1)
        self.call("org.freedesktop.DBus.Mock", "SetupDisplayDevice",
                  GLib.Variant("(iiddddxxbsu)", values))

    def set_on_battery(self, on_battery):
        self.call("org.freedesktop.DBus.Properties", "Set",
                  GLib.Variant("(ssv)", (SERVICE, "OnBattery", GLib.Variant("b", on_battery))))

    def start(self):
        self.time = VirtualTime("2026-11-20T12:00:00")
        self.addCleanup(self.time.close)
        self.app = start_tickwell(self.session, settings={"SetUp": {"Function": "4"}}, virtual_time=self.time,
                                  environment=self.system_bus())
        wait_lines(self.app, upper="Tickwell Ver.2")
        self.time.advance(START_UP_DELAY)

    def wait_readings(self, *texts):
        for text in texts:
            self.time.advance(READING)
            wait_lines(self.app, lower=text)

    def test_charge_and_time_take_turns_and_mains_is_told(self):
        self.start_service(on_battery=True)
        self.start()
        wait_lines(self.app, upper="バッテリー残量", lower="80％残っています")
        self.wait_readings("あと 1時間30分です", "80％残っています", "あと 1時間30分です")
        self.show_battery(79.0, 0)
        self.wait_readings("79％残っています", "79％残っています")
        self.set_on_battery(False)
        self.wait_readings("AC電源を使用中です", "AC電源を使用中です")

    def test_a_service_that_goes_and_comes_back(self):
        self.start_service(on_battery=True)
        self.start()
        wait_lines(self.app, lower="80％残っています")
        self.service.stop()
        without = self.kernel_says()
        self.wait_readings(without)
        self.start_service(on_battery=True)
        self.wait_readings("あと 1時間30分です")

    def test_without_a_service_the_kernel_is_asked(self):
        self.start()
        wait_lines(self.app, upper="バッテリー残量", lower=self.kernel_says())

    @staticmethod
    def kernel_says():
        """What this very machine has to show where no service runs: a test of ours, the wiring is what counts here."""
        return lambda text: text in ("電源が不明です", "AC電源を使用中です") or text.endswith("残っています")


if __name__ == "__main__":
    unittest.main()
