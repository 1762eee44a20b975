# SPDX-License-Identifier: GPL-3.0-or-later
"""Stopped services, which accept requests but never answer: the window must still respond."""

import contextlib
import os
import signal
import unittest
from types import SimpleNamespace

from driver import dbus_calls
from driver.answering import keeps_answering
from driver.case import TickwellCase
from driver.power import Machine, can_have_kernel_files
from driver.sound_server import SoundServer
from driver.tickwell import lines, start_tickwell, tickwell_command, wait_lines, wait_on_screen
from driver.tray_hosts import TrayIcon, start_trayer, start_xfce_panel
from driver.virtual_time import VirtualTime
from driver.waiting import SLOWNESS, wait_for

START_UP_DELAY = 11000  # ms
READING = 10000
START = 15.0 * SLOWNESS  # s; Qt alone waits up to 25 s for a bus
NOTICED = 60.0 * SLOWNESS  # s; what hangs reports nothing, so it is only noticed by a query every quarter of a minute
MENU, STORE, QUIT = "メニュー", "ﾀｽｸﾊﾞｰ格納", "終了"
CLOCK = {"SetUp": {"Win_Left": "1500", "Win_Top": "1500"}}  # twips
INSIDE = (130, 130)  # a point in the window, in pixels
WATCHER = "org.kde.StatusNotifierWatcher"


class HangingCase(TickwellCase):
    @contextlib.contextmanager
    def stopped(self, program):
        """Stops a program's process within the block."""
        os.kill(program.pid, signal.SIGSTOP)
        try:
            yield
        finally:
            os.kill(program.pid, signal.SIGCONT)

    def start(self, **options):
        self.app = start_tickwell(self.session, settings=CLOCK, **options)
        self.window = wait_on_screen(self.session, self.app)
        self.bus = self.session.services["dbus-daemon"]

    def keeps_answering(self):
        return keeps_answering(self.session, self.app.program, self.window)

    def on_screen(self):
        return self.session.windows.find(name="Tickwell", pid=self.app.program.pid) is not None

    def menu_item(self, name):
        """Closes the menu, opens it again and returns the item."""
        self.session.hand.key("Escape")
        wait_for(lambda: self.app.find(role="popup menu", name=MENU, showing=True) is None, "no menu")
        self.session.hand.click(INSIDE)
        return self.app.wait(role="popup menu", name=MENU).wait(name=name)

    def wait_patience(self):
        """Waits until every call made by the program has timed out: two seconds of its clock, twice its time limit.
        A call that is answered earlier keeps its result."""
        seen = set()

        def turned():
            seen.add(lines(self.app)[1])
            return len(seen) > 3

        wait_for(turned, "two seconds on the clock")

    def wait_item(self, enabled):
        """Opens the menu and waits until hiding the window in the notification area is enabled, or disabled."""
        item = self.menu_item(STORE)
        wait_for(lambda: item.enabled == enabled, f"the item enabled: {enabled}")
        return item


class SessionBus(HangingCase):
    def test_one_that_hangs_at_the_start(self):
        bus = self.session.services["dbus-daemon"]
        with self.stopped(bus):
            program = self.session.spawn(tickwell_command(self.session))
            window = self.session.windows.wait(name="Tickwell", pid=program.pid, timeout=START)
            shown = self.session.windows.geometry(window)
            before = self.shown()
            with keeps_answering(self.session, program, window):
                self.session.hand.click((shown.x + 30, shown.y + 20))
                wait_for(lambda: self.shown() - before, "the menu")
        self.session.hand.key("Up", "Return")  # the last item
        self.assertEqual(program.wait_end(), 0)
        self.assertIn("session bus does not answer", program.output())

    def shown(self):
        return {window.xid for window in self.session.windows.stacking()}

    def test_one_that_hangs_later(self):
        start_xfce_panel(self.session)
        icon = TrayIcon(self.session)
        self.start()
        self.wait_item(enabled=True)
        with self.keeps_answering():
            with self.stopped(self.bus):
                self.session.hand.click(self.menu_item(STORE))  # the program does not know yet that the bus hangs
                self.wait_item(enabled=False)
                self.wait_patience()
                self.assertTrue(self.on_screen())
            self.session.hand.click(self.wait_item(enabled=True))
            wait_for(lambda: not self.on_screen(), "the window put away")
            icon.wait()
            with self.stopped(self.bus):
                wait_for(self.on_screen, "the window back, for there is no area any more", NOTICED)
            icon.wait_gone()
            self.session.hand.click(self.wait_item(enabled=True))
            wait_for(lambda: not self.on_screen(), "the window put away")
            icon.wait()
            with self.stopped(self.bus):
                self.session.spawn(tickwell_command(self.session))
                wait_for(self.on_screen, "the window back for a second start")
            icon.wait_gone()
        item = self.menu_item(QUIT)
        with self.stopped(self.bus):
            self.session.hand.click(item)
            self.assertEqual(self.app.program.wait_end(START), 0)


class TrayHosts(HangingCase):
    def watcher(self):
        """The process that programs register their icons with: part of the panel."""
        connection = dbus_calls.connect(self.session.environment["DBUS_SESSION_BUS_ADDRESS"])
        self.addCleanup(dbus_calls.close, connection)
        return SimpleNamespace(pid=dbus_calls.process_of(connection, WATCHER))

    def test_a_host_of_the_session_bus(self):
        start_xfce_panel(self.session)
        icon = TrayIcon(self.session)
        self.start()
        self.wait_item(enabled=True)
        host = self.watcher()
        with self.keeps_answering():
            with self.stopped(host):
                self.session.hand.click(self.menu_item(STORE))
                self.wait_item(enabled=False)
                self.wait_patience()
                self.assertTrue(self.on_screen())
            self.session.hand.click(self.wait_item(enabled=True))
            wait_for(lambda: not self.on_screen(), "the window put away")
            icon.wait()
            with self.stopped(host):
                wait_for(self.on_screen, "the window back", NOTICED)
            icon.wait_gone()

    def test_a_host_of_the_screen(self):
        host = start_trayer(self.session)
        icon = TrayIcon(self.session)
        self.start()
        with self.keeps_answering(), self.stopped(host):
            self.session.hand.click(self.wait_item(enabled=True))
            wait_for(lambda: not self.on_screen(), "the window put away")
            self.session.spawn(tickwell_command(self.session))
            wait_for(self.on_screen, "the window back for a second start")
        with self.keeps_answering():
            self.session.hand.click(self.wait_item(enabled=True))
            icon.wait()


class Sound(HangingCase):
    def test_a_server_that_hangs_is_silence_until_it_goes_on(self):
        server = SoundServer(self.session)
        self.addCleanup(server.close)
        time = VirtualTime("2026-11-20T11:59:30")
        self.addCleanup(time.close)
        self.start(virtual_time=time, environment=server.environment)
        time.advance(START_UP_DELAY)
        server.hang()
        with self.keeps_answering():
            time.advance(30_000)
            wait_lines(self.app, lower=lambda text: "0時00分" in text)
        server.go_on()
        self.assertIsNone(self.app.program.exit_code)


@unittest.skipUnless(can_have_kernel_files(), "this machine lets no program have kernel files of its own")
class Battery(HangingCase):
    """The kernel reports a battery at 37 %, the power service reports 80 %."""

    KERNEL, SERVICE = "37％残っています", "80％残っています"

    def test_the_kernel_is_read_meanwhile_and_the_service_afterwards(self):
        machine = Machine(self.session)
        self.addCleanup(machine.close)
        machine.kernel_tells(capacity=37)
        machine.start_service(on_battery=True)
        machine.show_battery(80.0, 0)
        with self.stopped(machine.bus):
            time = VirtualTime("2026-11-20T12:10:00")
            self.addCleanup(time.close)
            app = start_tickwell(self.session, settings={"SetUp": {"Function": "4"}}, virtual_time=time,
                                 environment=machine.environment, wrap=machine.with_kernel_files)
            wait_lines(app, upper="Tickwell Ver.2")
            window = wait_on_screen(self.session, app)
            with keeps_answering(self.session, app.program, window):
                time.advance(START_UP_DELAY)
                wait_lines(app, upper="バッテリー残量", lower=self.KERNEL)
        with keeps_answering(self.session, app.program, window):
            time.advance(READING)
            wait_lines(app, lower=self.SERVICE)
            for service in (machine.bus, machine.service):
                with self.stopped(service):
                    time.advance(READING)
                    wait_lines(app, lower=self.KERNEL)
                time.advance(READING)
                wait_lines(app, lower=self.SERVICE)


if __name__ == "__main__":
    unittest.main()
