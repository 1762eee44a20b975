# SPDX-License-Identifier: GPL-3.0-or-later
"""The windows look the same in every language of the desktop."""

import os
import unittest
from pathlib import Path

from driver.case import ARTIFACTS_VARIABLE, TickwellCase
from driver.locales import make_locales
from driver.tickwell import start_tickwell, wait_lines, wait_on_screen
from driver.tool_windows import choose, wait_for_hand
from driver.virtual_time import VirtualTime
from driver.waiting import steady

START_UP_DELAY = 11000  # ms
WIPE = 1500  # ms, longer than a wipe
WINDOWS = {"環境設定": "環境設定", "カレンダー": "カレンダー", "ﾍﾙﾌﾟ": "Tickwell ヘルプ"}  # by menu item
LOCALES = ("C", "en_US.UTF-8", "ja_JP.UTF-8")
FAR = (1270, 1010)  # a pointer over a window would highlight what is below it


class Locales(TickwellCase):
    def setUp(self):
        super().setUp()
        self.locales = make_locales(self.session.directory / "locales", "en_US.UTF-8", "ja_JP.UTF-8")

    def picture(self, xid):
        """A picture of a window, after it is painted."""
        self.session.hand.move(FAR)
        area = tuple(self.session.windows.settled_geometry(xid))
        steady(lambda: self.session.grab(area).tobytes(), "the window painted")
        return self.session.grab(area)

    def pictures(self, locale):
        """Pictures of the main window and of those in WINDOWS, by title."""
        variables = self.locales | {"LC_ALL": locale, "LANG": locale}
        with VirtualTime("2026-11-20T21:04:55") as time:
            app = start_tickwell(self.session, virtual_time=time, environment=variables)
            time.advance(START_UP_DELAY)
            time.advance(WIPE)
            wait_lines(app, lower=lambda text: text.endswith("秒"))
            pictures = {"Tickwell": self.picture(wait_on_screen(self.session, app))}
            for item, title in WINDOWS.items():
                choose(self.session, app, item)
                xid = wait_for_hand(self.session, app, title)
                time.advance(WIPE)  # of the settings' sample
                pictures[title] = self.picture(xid)
                self.session.windows.close_window(xid)
                app.wait_gone(role="dialog", name=title, showing=True)
            app.program.stop()
        return pictures

    def keep(self, pictures, locale):
        """Saves them for inspection."""
        folder = os.environ.get(ARTIFACTS_VARIABLE)
        if folder:
            Path(folder).mkdir(parents=True, exist_ok=True)
            for title, picture in pictures.items():
                picture.save(Path(folder, f"{self.id()}-{locale}-{title}.png"))

    def test_every_window_looks_the_same_in_every_locale(self):
        pictures = {locale: self.pictures(locale) for locale in LOCALES}
        for locale in LOCALES:
            self.keep(pictures[locale], locale)
            for title, expected in pictures["ja_JP.UTF-8"].items():
                with self.subTest(title, locale=locale):
                    found = pictures[locale][title]
                    self.assertEqual(found.size, expected.size)
                    self.assertEqual(found.tobytes(), expected.tobytes())


if __name__ == "__main__":
    unittest.main()
