#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""TICKWELL_PROGRAM=… look_everywhere.py FOLDER [WORD…]: takes a picture of each window on each desktop, light and dark, at
96, 144 and 192 dots per inch, and puts those of a combination on one sheet, FOLDER/openbox-dark-144.png. With words, only
the combinations whose name contains one of them. Needs openbox, xfwm4 with xfce4-panel, mutter, sway
with wtype, and weston."""

import contextlib
import itertools
import re
import sys
from pathlib import Path

from PIL import Image, ImageChops

HERE = Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parents[1] / "tests/end_to_end"))

from driver.desktop import Session  # noqa: E402
from driver.sway_session import SwaySession  # noqa: E402
from driver.tickwell import start_tickwell, tickwell_command, wait_lines  # noqa: E402
from driver.tool_windows import MENU, press, wait_window  # noqa: E402
from driver.tray_hosts import start_xfce_panel  # noqa: E402
from driver.virtual_time import VirtualTime  # noqa: E402
from driver.waiting import steady, wait_for  # noqa: E402

SCREEN = (1600, 1200)
DOTS = (96, 144, 192)
THEMES = ("light", "dark")
# Colours as KDE stores them; Qt reads them in a KDE session.
DARK = """[Colors:Window]
BackgroundNormal=35,38,41
ForegroundNormal=239,240,241
[Colors:View]
BackgroundNormal=27,30,32
ForegroundNormal=239,240,241
BackgroundAlternate=35,38,41
[Colors:Button]
BackgroundNormal=49,54,59
ForegroundNormal=239,240,241
[Colors:Selection]
BackgroundNormal=61,174,233
ForegroundNormal=239,240,241
[Colors:Tooltip]
BackgroundNormal=49,54,59
ForegroundNormal=239,240,241
"""
SHOW = "操作ｳｨﾝﾄﾞｳの表示"
# The display that is chosen, the menu item, and the title of the window that it opens.
WINDOWS = [(2, SHOW, "ストップウォッチ"), (3, SHOW, "タイマー"), (6, SHOW, "CDプレーヤー"), (0, "ﾍﾙﾌﾟ", "Tickwell ヘルプ"),
           (0, "バージョン情報", "Tickwellのﾊﾞｰｼﾞｮﾝ情報")]
BOOK = {"追加": "記念日の追加", "検索": "記念日の検索", "削除": "記念日の削除"}  # by button of the calendar
EVENTS = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//look//look//EN\r\n" + "".join(
    f"BEGIN:VEVENT\r\nUID:{name}\r\nDTSTART;VALUE=DATE:{start}\r\n{rule}SUMMARY:{name}\r\nEND:VEVENT\r\n"
    for name, start, rule in (("結婚記念日", "20260610", "RRULE:FREQ=YEARLY\r\n"),
                              ("句会", "20260608", "RRULE:FREQ=MONTHLY;BYDAY=2MO\r\n"), ("展覧会", "20270310", ""),
                              ("検診", "20250115", "RRULE:FREQ=MONTHLY;INTERVAL=6\r\n"))) + "END:VCALENDAR\r\n"
OPENS = ("開く", "開く(O)", "開く(&O)", "Open")
CANCELS = ("キャンセル", "ｷｬﾝｾﾙ")
SETTLING = 0.15  # s, shorter than a caret stays on or off
TEA = 4 * 60_000  # ms
WIPE = 1500  # ms, longer than a wipe


def managed(*command):
    return lambda environment: Session(command, screen="x".join(map(str, SCREEN)) + "x24", environment=environment)


@contextlib.contextmanager
def with_panel(environment):
    with managed("xfwm4", "--compositor=off")(environment) as session:
        start_xfce_panel(session)
        yield session


@contextlib.contextmanager
def weston(environment):
    """weston in a window as large as the screen, with XWayland for the program."""
    width, height = map(str, SCREEN)
    with managed("openbox")(environment) as session:
        compositor = session.spawn(["weston", "--backend=x11-backend.so", "--use-pixman", "--xwayland", "--no-config",
                                    "--fullscreen", "--width", width, "--height", height])
        shown = re.compile(r"xserver listening on display (:\d+)")
        session.environment["DISPLAY"] = wait_for(lambda: shown.search(compositor.output()), "XWayland").group(1)
        yield session


DESKTOPS = {"openbox": managed("openbox"), "xfwm4": with_panel, "mutter": managed("mutter", "--x11", "--sm-disable"),
            "sway": lambda environment: SwaySession(environment=environment, size=SCREEN), "weston": weston}


class Tour:
    """The pictures of the program's windows on a desktop, in the order in which they were taken."""

    def __init__(self, session):
        self.session, self.pictures = session, []

    def go(self):
        with self.started(0):
            self.take()
            self.open_menu()
            self.take()
        for function, item, title in WINDOWS:
            with self.started(function):
                self.open(item, title)
        with self.started(0):
            self.tour_of_the_calendar()
        with self.started(0):
            self.tour_of_the_settings()
        with self.started(0):
            self.tour_of_the_files()
        with self.started(3):
            self.tour_of_the_lists()

    @contextlib.contextmanager
    def started(self, function):
        """The program, started with this display, until it is ended."""
        self.bare = self.session.grab()
        with VirtualTime("2026-11-20T21:04:55") as self.time:
            self.app = start_tickwell(self.session, virtual_time=self.time,
                                      settings={"SetUp": {"Function": str(function)}})
            wait_lines(self.app, upper="Tickwell Ver.2")
            self.time.advance(11000)
            yield
            self.app.program.stop()

    def tour_of_the_calendar(self):
        calendar = self.open("カレンダー", "カレンダー")
        press(calendar, "記念日の一覧を開く")
        self.take()
        for caption, title in BOOK.items():
            press(calendar, caption)
            window = wait_window(self.app, title)
            self.take()
            self.cancel(window)

    def tour_of_the_settings(self):
        settings = self.open("環境設定", "環境設定")
        pages = [tab.name for tab in settings.wait(role="page tab list").children if tab.role == "page tab"]
        for page in pages[1:]:
            settings.wait(role="page tab", name=page).press()
            self.take()

    def tour_of_the_files(self):
        settings = self.open("環境設定", "環境設定")
        settings.wait(role="page tab", name="データベース").press()
        path = Path(self.session.home) / "days.ics"
        path.write_text(EVENTS, encoding="utf-8")
        settings.wait(role="push button", name="記念日を読み込む").press_and_go()
        chooser = wait_window(self.app, "記念日のファイル")
        chooser.wait(role="text", showing=True).set_text(str(path))
        chooser.wait(role="push button", name=lambda name: name in OPENS, showing=True).press_and_go()
        reading = wait_window(self.app, "記念日の読込")
        wait_for(lambda: self.time.advance(20) and reading.find(
            role="label", name=lambda text: "選択 " in text, showing=True), "the sums of the events")
        self.take()
        self.cancel(reading)
        settings.wait(role="push button", name="記念日を書き出す").press_and_go()
        wait_window(self.app, "記念日の書出")
        self.take()

    def cancel(self, window):
        window.find(role="push button", which=lambda node: node.name in CANCELS).press()
        self.app.wait_gone(role="dialog", name=window.name, showing=True)

    def tour_of_the_lists(self):
        """Last, because timers and alarms go on at the next start."""
        timer = self.open(SHOW, "タイマー")
        press(timer, "アラーム...")
        alarms = wait_window(self.app, "アラーム一覧")
        press(alarms, "追加")
        self.take()
        press(alarms, "閉じる")
        self.app.wait_gone(role="dialog", name="アラーム一覧", showing=True)
        press(timer, "一覧...")
        timers = wait_window(self.app, "タイマー一覧")
        for preset in ("紅茶 4分", "集中 25分／休憩 5分"):
            press(timers, preset)
        self.take()
        self.time.advance(TEA)
        self.take()

    def open_menu(self):
        again = self.session.spawn(tickwell_command(self.session, arguments=("--menu",)))
        wait_for(lambda: again.exit_code is not None, "the second start")
        return self.app.wait(role="popup menu", name=MENU)

    def open(self, item, title):
        """Opens a window by its item in the menu and takes its picture; returns the window. The item is chosen without
        the pointer, because only the compositor knows where it is."""
        self.open_menu().wait(name=item).press_and_go()
        window = wait_window(self.app, title)
        if self.app.menus:
            self.leave_menu()
        self.take()
        return window

    def leave_menu(self):
        def is_closed():
            if isinstance(self.session, SwaySession):  # again and again: XWayland may lose the first key of a keyboard
                self.session.press_key("Tickwell", "Escape")
            return not self.app.menus
        if not isinstance(self.session, SwaySession):
            self.session.hand.key("Escape")
        wait_for(is_closed, "the menu closed")

    def take(self):
        """Takes a picture of what the program has changed on the screen."""
        self.time.advance(WIPE)
        steady(lambda: self.session.grab().tobytes(), "the screen painted", SETTLING)
        shown = self.session.grab()
        box = ImageChops.difference(shown, self.bare).getbbox()
        self.pictures.append(shown.crop(box) if box else shown)


def sheet(pictures):
    """The pictures in rows from left to right, none scaled."""
    width, x, y, row = 2 * SCREEN[0], 0, 0, 0
    places = []
    for picture in pictures:
        if x and x + picture.width > width:
            x, y, row = 0, y + row + 8, 0
        places.append((x, y))
        x, row = x + picture.width + 8, max(row, picture.height)
    paper = Image.new("RGB", (width, y + row), (90, 120, 90))
    for picture, place in zip(pictures, places, strict=True):
        paper.paste(picture, place)
    return paper


def main(folder, words):
    folder.mkdir(parents=True, exist_ok=True)
    colours = folder / "kdeglobals"
    colours.write_text(DARK, encoding="ascii")
    dark = {"XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5", "KDE_FULL_SESSION": "true",
            "XDG_CONFIG_DIRS": str(folder)}
    for desktop, theme, dots in itertools.product(DESKTOPS, THEMES, DOTS):
        name = f"{desktop}-{theme}-{dots}"
        if words and not any(word in name for word in words):
            continue
        environment = {"QT_FONT_DPI": str(dots)} | (dark if theme == "dark" else {})
        with DESKTOPS[desktop](environment) as session:
            tour = Tour(session)
            try:
                tour.go()
            finally:
                sheet(tour.pictures).save(folder / f"{name}.png")
        print(name, len(tour.pictures), "pictures")


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    main(Path(sys.argv[1]), sys.argv[2:])
