# SPDX-License-Identifier: GPL-3.0-or-later
"""The transparent main window, and clicks that pass through it."""

import re

from driver.pictures import colours
from driver.settings_case import SettingsCase, button, check
from driver.tickwell import main_window, start_tickwell, tickwell_command, wait_lines, wait_on_screen
from driver.tray_hosts import TrayIcon, start_trayer
from driver.waiting import wait_for

WHITE, RED, BLUE = (255, 255, 255), (255, 0, 0), (0, 0, 255)
PLACE = {"Win_Left": "1500", "Win_Top": "1500"}  # twips: 100, 100 in pixels
TEXTS = {"BackColor": "255", "A_Color": "16711680", "B_Color": "16711680"}  # blue on red
PASS = "クリックを下の窓に通す"
ACCEPT = "クリックを受ける"
LOOK = 2000  # ms between two looks at the tray after a change


class SeeThroughCase(SettingsCase):
    def start_below(self):
        """Opens a white window that is larger than the clock and reports its clicks."""
        self.below = self.session.spawn(["xev", "-event", "mouse", "-geometry", "400x300+50+50"])
        self.session.windows.wait(name="Event Tester")

    def clicks(self):
        return len(re.findall("^ButtonPress", self.below.output(), re.MULTILINE))

    def shown(self):
        """The colours on the screen in the clock's area, most frequent first."""
        return [colour for _, colour in colours(self.session.grab(main_window(self.app).extents), most=3)]


class Transparent(SeeThroughCase):
    window_manager = ("xfwm4", "--compositor=on", "--vblank=off")

    def start_over(self, **face):
        self.start_below()
        self.start({"SetUp": PLACE | TEXTS, "Face": {key: str(value) for key, value in face.items()}})

    def test_as_before_the_background_is_painted(self):
        self.start_over()
        wait_for(lambda: self.shown()[0] == RED, "the background")

    def test_only_the_texts_are_shown(self):
        self.start_over(Transparent=True)
        wait_for(lambda: self.shown()[0] == WHITE, "the window below")
        self.assertIn(RED, self.shown())  # the outline

    def test_without_an_outline_the_text_is_alone(self):
        self.start_over(Transparent=True, Outline=0)
        wait_for(lambda: self.shown()[0] == WHITE and BLUE in self.shown(), "the texts on the window below")
        self.assertNotIn(RED, self.shown())

    def test_it_is_chosen_for_the_next_start(self):
        self.start_over()
        self.open()
        self.page("窓")
        self.click(check("背景を透明にし、文字だけを見せる"), {"role": "radio button", "name": "文字の縁取り 太い"},
                   button("OK"))
        self.wait_closed()
        self.assertEqual(self.shown()[0], RED)
        self.quit()
        self.assertEqual(self.stored("Face"), {"Transparent": "True", "Outline": "2"})
        self.app = start_tickwell(self.session)
        wait_on_screen(self.session, self.app)
        wait_for(lambda: self.shown()[0] == WHITE, "the window below")


class WithoutCompositor(SeeThroughCase):
    def test_the_background_is_painted(self):
        self.start_below()
        self.start({"SetUp": PLACE | TEXTS, "Face": {"Transparent": "True"}})
        wait_for(lambda: self.shown()[0] == RED, "the background")


class ClickRoads:
    """Tests for every window manager."""

    def input_areas(self):
        return self.session.windows.input_areas(self.session.windows.wait(name="Tickwell", pid=self.app.program.pid))

    def check_click(self, below):
        """Clicks the middle of the clock once the window manager knows its input area, and checks whether the window
        below received the click."""
        wait_for(lambda: all((count == 0) is below for count in self.input_areas()), "the input area")
        self.assertIs(self.click_clock(), below)

    def click_clock(self):
        """Returns whether the window below received the click."""
        before = self.clicks()
        self.session.hand.click(main_window(self.app))
        got = []
        wait_for(lambda: got.append(self.clicks() > before) or got[-1] or self.menu_is_open(), "the click received")
        if not got[-1]:
            self.session.hand.key("Escape")
            self.app.wait_gone(role="popup menu", name="メニュー")
        return got[-1]

    def menu_is_open(self):
        return self.app.find(role="popup menu", name="メニュー", showing=True) is not None

    def choose_in_page(self, *answers):
        self.open()
        self.page("窓")
        self.click(check(PASS))
        for answer in answers:
            self.click(button(answer), window=self.app.wait(role="alert message", name=PASS, showing=True))
            self.app.wait_gone(role="alert message", name=PASS, showing=True)
        is_on = self.is_on(check(PASS))
        self.click(button("OK"))
        self.wait_closed()
        return is_on

    def test_exactly_while_it_is_on(self):
        start_trayer(self.session)
        icon = TrayIcon(self.session)
        self.start_below()
        self.start({"SetUp": PLACE})
        window = self.session.windows.wait(name="Tickwell", pid=self.app.program.pid)
        self.check_click(below=False)
        self.assertTrue(self.choose_in_page())
        icon.wait()
        self.check_click(below=True)
        place = tuple(main_window(self.app).extents)
        self.session.hand.click(icon.wait(), button=3)
        self.session.hand.click(self.app.wait(role="popup menu", showing=True).wait(name=ACCEPT))
        icon.wait_gone()
        self.check_click(below=False)
        self.assertEqual(self.session.windows.wait(name="Tickwell", pid=self.app.program.pid), window)
        self.assertEqual(tuple(main_window(self.app).extents), place)
        x, y, width, height = place  # the area that is widened below must also receive clicks
        self.session.hand.drag((x + width - 1, y + height // 2), (x + width + 80, y + height // 2))
        wait_for(lambda: main_window(self.app).extents[2] > width + 40, "the wider window")
        before = self.clicks()
        self.session.hand.click((x + width + 30, y + height // 2))
        wait_for(self.menu_is_open, "the menu")
        self.assertEqual(self.clicks(), before)

    def test_it_is_on_from_the_start_and_ends_by_a_second_start(self):
        start_trayer(self.session)
        icon = TrayIcon(self.session)
        self.start_below()
        self.start({"SetUp": PLACE, "Face": {"ClickThrough": "True"}})
        self.session.hand.move((900, 600))
        icon.wait()
        self.check_click(below=True)
        self.assertEqual(self.session.spawn(tickwell_command(self.session, arguments=("--menu",))).wait_end(), 0)
        self.session.hand.click(self.app.wait(role="popup menu", name="メニュー").wait(name=ACCEPT))
        icon.wait_gone()
        self.check_click(below=False)
        self.quit()
        self.assertNotIn("True", self.stored("Face").values())

    def test_a_click_on_the_icon_opens_the_menu(self):
        start_trayer(self.session)
        icon = TrayIcon(self.session)
        self.start({"SetUp": PLACE, "Face": {"ClickThrough": "True"}})
        self.session.hand.click(icon.wait())
        self.session.hand.click(self.app.wait(role="popup menu", name="メニュー").wait(name=ACCEPT))
        icon.wait_gone()

    def test_without_a_tray_it_asks(self):
        self.start_below()
        self.start({"SetUp": PLACE})
        self.assertFalse(self.choose_in_page("キャンセル"))
        self.check_click(below=False)
        self.assertTrue(self.choose_in_page("OK"))
        self.check_click(below=True)
        self.assertEqual(self.session.spawn(tickwell_command(self.session, arguments=("--menu",))).wait_end(), 0)
        self.app.wait(role="popup menu", name="メニュー").wait(name=ACCEPT)
        self.session.hand.key("Return")
        self.app.wait_gone(role="popup menu", name="メニュー")
        self.check_click(below=False)

    def test_the_end_of_the_tray_ends_it(self):
        host = start_trayer(self.session)
        icon = TrayIcon(self.session)
        self.start_below()
        self.start({"SetUp": PLACE, "Face": {"ClickThrough": "True"}})
        icon.wait()
        self.check_click(below=True)
        host.stop()
        # Time must pass after the server has reported the end of the tray.
        wait_for(lambda: self.time.advance(LOOK) and self.input_areas()[0], "an input area")
        self.check_click(below=False)


class Openbox(ClickRoads, SeeThroughCase):
    pass


class Xfwm4(ClickRoads, SeeThroughCase):
    window_manager = ("xfwm4", "--compositor=on", "--vblank=off")
