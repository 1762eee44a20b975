# SPDX-License-Identifier: GPL-3.0-or-later
"""The appearance of the main window and its position on the screens, as chosen in the settings."""

import subprocess

from driver.settings_case import SettingsCase, button, check
from driver.tickwell import main_window, read_settings, wait_lines
from driver.waiting import wait_for

LEFT, RIGHT = (0, 800), (800, 480)  # left edge and width of the two monitors, in pixels
FULL = 0xFFFFFFFF
DATE = "平成10年11月15日(日曜日)"


class Face(SettingsCase):
    def monitor(self, name, area, output):
        """Connects a monitor that shows this part of the screen."""
        geometry = f"{area[1]}/200x1024/250+{area[0]}+0"
        self.xrandr("--setmonitor", name, geometry, output)

    def xrandr(self, *words):
        subprocess.run(("xrandr", *words), env=self.session.environment, check=True, timeout=30)

    def left_edge(self):
        return main_window(self.app).extents[0]

    def test_it_moves_with_its_screen(self):
        self.monitor("DP-1", LEFT, "screen")
        self.monitor("DP-2", RIGHT, "none")
        self.start({"Face": {"StaysOnScreen": "True"}, "SetUp": {"Win_Left": str(900 * 15), "Win_Top": str(300 * 15)}})
        wait_for(lambda: self.left_edge() == 900, "the stored position")
        for _ in range(2):
            self.xrandr("--delmonitor", "DP-2")
            self.time.advance(5000)
            wait_for(lambda: self.left_edge() + main_window(self.app).extents[2] == 800, "the left screen's edge")
            self.monitor("DP-2", RIGHT, "none")
            self.time.advance(5000)
            wait_for(lambda: self.left_edge() == 900, "the return to the right screen")
        self.quit()
        face = read_settings(self.session)["Face"]
        self.assertEqual((face["Screen"], face["ScreenLeft"], face["ScreenTop"]), ("DP-2", "100", "300"))

    def test_opacity_is_what_the_settings_say(self):
        self.start()
        window = self.session.windows.wait(name="Tickwell", pid=self.app.program.pid)
        self.assertIsNone(self.opacity(window))
        self.open()
        self.page("窓")
        self.dialog.wait(role="label", name="このデスクトップでは、今は窓が透けません（コンポジターが動いていません）。")
        self.dialog.wait(role="spin box", name="不透明度（パーセント）").set_value(50)
        self.click(button("OK"))
        self.wait_closed()
        wait_for(lambda: abs((self.opacity(window) or 0) / FULL - 0.5) < 0.01, "half of the opacity")

    def opacity(self, window):
        words = ("xprop", "-id", hex(window), "-notype", "32c", "_NET_WM_WINDOW_OPACITY")
        answer = subprocess.run(words, env=self.session.environment, check=True, timeout=30, capture_output=True,
                                text=True).stdout
        return int(answer.split("=")[1]) if "=" in answer else None

    def test_the_tool_tip_has_the_complete_text(self):
        self.start({"SetUp": {"Win_Width": str(80 * 15)}})
        wait_lines(self.app, upper=DATE)
        self.open()
        self.page("窓")
        self.click(check("長い文字を省略記号で示す"))
        self.click(button("OK"))
        self.wait_closed()
        x, y, _, _ = main_window(self.app).extents
        self.session.hand.move((x + 300, y + 300))
        self.session.hand.move((x + 20, y + 10))
        self.session.hand.move((x + 22, y + 11))
        self.app.wait(role="tool tip", name=DATE, showing=True)
