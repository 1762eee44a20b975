#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""TICKWELL_PROGRAM=… TICKWELL_MAKE_DISCS=… take_pictures.py: takes the screenshots for the documentation from the
running program."""

import sys
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parents[1] / "tests/end_to_end"))

from driver.desktop import Session  # noqa: E402
from driver.disc_sound import make_discs  # noqa: E402
from driver.tickwell import start_tickwell, wait_lines, wait_on_screen  # noqa: E402
from driver.tool_windows import button, choose, wait_window  # noqa: E402
from driver.virtual_time import VirtualTime  # noqa: E402
from driver.waiting import steady  # noqa: E402

TODAYS_JAPAN = {"Calendar": {"HolidaysByLaw": "True", "ErasByDate": "True", "UnderDays": "1"},
                "Corrections": {"ShowsToday": "True"}}

# Picture, menu item, title of the window that it opens, settings.
WINDOWS = [
    ("help.png", "ﾍﾙﾌﾟ", "Tickwell ヘルプ", None),
    ("about.png", "バージョン情報", "Tickwellのﾊﾞｰｼﾞｮﾝ情報", None),
    ("calendar.png", "カレンダー", "カレンダー", None),
    ("today.png", "カレンダー", "カレンダー", TODAYS_JAPAN),
    ("timer.png", "ﾀｲﾏｰ", "タイマー", None),
    ("settings.png", "環境設定", "環境設定", None),
]

TWICE = {"QT_SCALE_FACTOR": "2"}  # sharp on screens of any resolution


def main():
    with Session() as session, VirtualTime("2026-11-20T21:04:55") as time:
        app = start_tickwell(session, virtual_time=time, environment=TWICE,
                             settings={"SetUp": {"Win_Left": "300", "Win_Top": "300"}})
        time.advance(11000)
        time.advance(1200)
        wait_lines(app, lower="午後9時05分07秒")
        windows = session.windows
        clock = windows.geometry(windows.wait(name="Tickwell"))  # in physical pixels
        session.screenshot(HERE / "clock.png", tuple(clock))
        session.hand.click((clock.x + 40, clock.y + 40))
        app.wait(role="popup menu")
        menu = windows.geometry(windows.find(pid=app.program.pid))
        session.screenshot(HERE / "menu.png", (clock.x, clock.y, max(clock.width, menu.x + menu.width - clock.x),
                                               menu.y + menu.height - clock.y))
        session.hand.key("Escape")
    for picture, item, title, settings in WINDOWS:
        take_window(picture, item, title, settings)
    take_cd_player()


def take_window(picture, item, title, settings):
    """Takes a picture of the window that a menu item opens, without its frame."""
    with Session() as session, VirtualTime("2026-11-20T21:04:55") as time:
        app = start_tickwell(session, virtual_time=time, settings=settings)
        time.advance(11000)
        wait_on_screen(session, app)
        choose(session, app, item)
        window = session.windows.wait(name=title, pid=app.program.pid)
        time.advance(1500)  # the wipe of the settings' sample has ended
        take(session, picture, window)


def take_cd_player():
    """Takes a picture of the CD player's window while it plays."""
    with Session() as session, VirtualTime("2026-11-20T21:04:55") as time:
        discs = session.directory / "discs"
        make_discs(discs)
        app = start_tickwell(session, settings={"SetUp": {"Function": "6"}}, virtual_time=time,
                             arguments=("--disc", discs / "three_tones.cue"))
        time.advance(11000)
        wait_lines(app, upper="全トラック数 3")
        choose(session, app, "操作ｳｨﾝﾄﾞｳの表示")
        window = wait_window(app, "CDプレーヤー")
        session.hand.click(button(window, "再生"))
        window.wait(role="label", name="再生", showing=True)
        session.hand.move((1200, 1000))  # a button under the pointer is highlighted
        take(session, "cd.png", session.windows.wait(name="CDプレーヤー", pid=app.program.pid))


def take(session, picture, window):
    """Takes a picture of a window, by its X id, after it is painted."""
    steady(lambda: session.grab(tuple(session.windows.geometry(window))).tobytes(), "the window painted")
    session.screenshot(HERE / picture, tuple(session.windows.geometry(window)))


if __name__ == "__main__":
    main()
