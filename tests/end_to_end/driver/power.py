# SPDX-License-Identifier: GPL-3.0-or-later
"""The machine's power supply: a fake UPower on a private system bus, and the kernel's files."""

import shutil
import subprocess

from gi.repository import Gio, GLib

from driver import dbus_calls
from driver.waiting import wait_for

SERVICE = "org.freedesktop.UPower"
ROOT = "/org/freedesktop/UPower"
DEVICE = f"{ROOT}/devices/DisplayDevice"
BATTERY_TYPE, DISCHARGING = 2, 2
OWN_MOUNTS = ["unshare", "--user", "--map-current-user", "--keep-caps", "--mount"]


def can_have_kernel_files():
    """Whether mount namespaces are available; some containers forbid them."""
    return subprocess.run([*OWN_MOUNTS, "true"], stderr=subprocess.DEVNULL, check=False).returncode == 0


class Machine:
    """`environment` directs programs to the private system bus; before `start_service` it has no power service."""

    def __init__(self, session):
        self._session = session
        self._supplies = session.directory / "power_supply"
        self._supplies.mkdir()
        address = f"unix:path={session.directory / 'system-bus'}"
        self.environment = {"DBUS_SYSTEM_BUS_ADDRESS": address}
        self.bus = session.spawn(["dbus-daemon", "--session", "--nofork", "--nopidfile", f"--address={address}"])
        self._connection = wait_for(lambda: dbus_calls.connect(address), "the system bus")

    def close(self):
        dbus_calls.close(self._connection)

    def kernel_tells(self, **files):
        """Writes the files of one battery; without arguments, removes the battery."""
        battery = self._supplies / "BAT0"
        shutil.rmtree(battery, ignore_errors=True)
        if files:
            battery.mkdir()
            for name, text in ({"type": "Battery"} | files).items():
                (battery / name).write_text(f"{text}\n")

    def with_kernel_files(self, command):
        """The command with these files mounted in place of the kernel's."""
        return [*OWN_MOUNTS, "sh", "-c", 'mount --bind "$0" /sys/class/power_supply && exec "$@"', self._supplies,
                *command]

    def start_service(self, on_battery):
        """Starts the fake service, with a battery at 80 % and 90 minutes of remaining time; returns its program."""
        self.service = self._session.spawn(
            ["/usr/bin/python3", "-m", "dbusmock", "--system", "--template", "upower",
             "--parameters", f'{{"OnBattery": {str(on_battery).lower()}}}'], environment=self.environment)
        wait_for(self._answers, "the power service")
        self.show_battery(80.0, 5400)
        return self.service

    def show_battery(self, percent, seconds):
        """Sets the display device's charge and remaining time; its type is battery, its state discharging."""
        values = (BATTERY_TYPE, DISCHARGING, percent, percent, 100.0, 10.0, seconds, 0, True, "battery", 1)
        self._call(ROOT, "org.freedesktop.DBus.Mock", "SetupDisplayDevice", GLib.Variant("(iiddddxxbsu)", values))

    def set_device(self, name, value):
        """Sets one property of the display device to a GLib.Variant of any type."""
        self._call(DEVICE, "org.freedesktop.DBus.Mock", "UpdateProperties",
                   GLib.Variant("(sa{sv})", (f"{SERVICE}.Device", {name: value})))

    def set_on_battery(self, on_battery):
        self._call(ROOT, "org.freedesktop.DBus.Properties", "Set",
                   GLib.Variant("(ssv)", (SERVICE, "OnBattery", GLib.Variant("b", on_battery))))

    def _answers(self):
        self.service.check_running()
        try:
            self._call(ROOT, "org.freedesktop.DBus.Properties", "GetAll", GLib.Variant("(s)", (SERVICE,)))
            return True
        except GLib.Error:
            return False

    def _call(self, path, interface, method, arguments):
        return self._connection.call_sync(SERVICE, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE,
                                          int(dbus_calls.CALL_TIMEOUT * 1000), None)
