# SPDX-License-Identifier: GPL-3.0-or-later
"""The windows that read anniversaries from files and write them to files, on virtual time."""

import os
import sqlite3
from contextlib import closing
from pathlib import Path

from driver.boxes import close_box
from driver.settings_case import SettingsCase, button
from driver.tickwell import make_folder
from driver.waiting import wait_for

NOW = "2026-11-23T12:00:00"
READ, WRITE = "記念日の読込", "記念日の書出"


class ExchangeCase(SettingsCase):
    """Starts with a database of one anniversary, and opens that page of the settings."""

    def setUp(self):
        super().setUp()
        self.folder = make_folder(self.session.home / "folder")
        with closing(sqlite3.connect(self.folder / "DayDate.mdb")) as database, database:
            database.execute("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('前からある',0,5,5,0)")
        self.start(folder=self.folder, wall=NOW)
        self.open()
        self.page("データベース")

    def stored(self):
        with closing(sqlite3.connect(self.folder / "DayDate.mdb")) as database:
            return database.execute("SELECT Name,Year,Month,Day,Week FROM Kinenbi ORDER BY id").fetchall()

    def pass_time(self):
        """Work continues in timers of the program's own time."""
        self.time.advance(20)

    def choose_file(self, opener, title, path):
        self.click(button(opener))
        chooser = self.window(title)
        wait_for(lambda: "active" in chooser.states, "the keyboard focus in the file dialog")
        self.session.hand.type(str(path))
        self.session.hand.key("Return")

    def write(self, window, path):
        """Chooses the file to write to."""
        self.click(button("書き出す..."), window=window)
        chooser = self.window("記念日の書き出し先")
        wait_for(lambda: "active" in chooser.states, "the keyboard focus in the file dialog")
        self.session.hand.key("ctrl+a")
        self.session.hand.type(str(path))
        self.session.hand.key("Return")

    def close_box(self, text):
        """Closes the box that tells the end of the work."""
        def told():
            self.pass_time()
            return [window for window in self.app.children if window.role == "alert message"]
        wait_for(told, text)
        close_box(self.app, text)

    def read(self, content, name="events.ics"):
        path = self.session.home / name
        path.write_text(content, encoding="utf-8")
        self.choose_file("記念日を読み込む", "記念日のファイル", path)
        return path

    def import_window(self):
        def found():
            self.pass_time()
            return self.app.find_all(role="label", name=lambda text: "、選択 " in text, showing=True)
        wait_for(found, "the sums of the entries")
        return self.app.wait(role="dialog", name=READ, showing=True)

    def sums(self, window):
        return window.wait(role="label", name=lambda text: "、選択 " in text, showing=True).name

    def wait_sums(self, window, text):
        def shown():
            self.pass_time()
            return self.sums(window) == text
        wait_for(shown, f"the sums {text}")

    def cells(self, window):
        return [tuple(row) for row in window.wait(role="table", name="取り込む記念日").table()]

    def picture(self, name):
        folder = os.environ.get("TICKWELL_PICTURES")
        if folder:
            self.session.screenshot(Path(folder) / name)
