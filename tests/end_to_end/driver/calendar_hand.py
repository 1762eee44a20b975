# SPDX-License-Identifier: GPL-3.0-or-later
"""Operating the calendar with the mouse: marking days of a month, adding anniversaries to the selected day."""

import sqlite3

from driver.tool_windows import button, choose, press, wait_for_hand
from driver.waiting import wait_for

CALENDAR = "カレンダー"
ADDING = "記念日の追加"
NORMAL, HOLIDAYS = "通常表示", "休日設定"


class CalendarHand:
    """Opens the calendar, which shows the month of the program's wall clock."""

    def __init__(self, session, app):
        self._session, self._app = session, app
        choose(session, app, CALENDAR)
        self.window = app.wait(role="dialog", name=CALENDAR, showing=True)
        wait_for_hand(session, app, CALENDAR)

    def close(self):
        self._session.windows.close_window(wait_for_hand(self._session, self._app, CALENDAR))
        self._app.wait_gone(role="dialog", name=CALENDAR, showing=True)

    def choose(self, mode):
        """Chooses one of the three modes and waits until it is checked, which is after its action is done."""
        option = self.window.wait(role="radio button", name=mode)
        x, y, _, height = option.extents
        self._session.hand.click((x + 8, y + height // 2))
        wait_for(lambda: "checked" in option.states, f"mode {mode}")

    def click(self, date):
        """`date`: like "1998年10月6日"."""
        self._session.hand.click(self.window.wait(name=lambda name: name.startswith(f"{date} "), showing=True))

    def mark(self, *dates):
        """Toggles the holiday marks of days. On return they are stored, or an error is shown."""
        self.choose(HOLIDAYS)
        for date in dates:
            self.click(date)
        self.choose(NORMAL)

    def open_list(self):
        button(self.window, "記念日の一覧を開く").press()

    def add(self, name):
        """Adds an anniversary to the selected day. It is stored when the window has closed, or an error is shown."""
        press(self.window, "追加")
        editor = self._app.wait(role="dialog", name=ADDING, showing=True)
        editor.wait(role="text", name="記念日の名前").set_text(name)
        press(editor, "追加>>")
        return editor

    def wait_added(self):
        self._app.wait_gone(role="dialog", name=ADDING, showing=True)


def stored(folder):
    """(names of anniversaries, dates of holidays) in a program folder's database, both in order. Also checks the
    integrity of the database."""
    database = sqlite3.connect(f"file:{folder}/DayDate.mdb?mode=ro", uri=True)
    try:
        assert database.execute("PRAGMA integrity_check").fetchall() == [("ok",)]
        names = [name for (name,) in database.execute('SELECT "Name" FROM "Kinenbi" ORDER BY rowid')]
        dates = [date for (date,) in database.execute('SELECT "Date" FROM "Holiday" ORDER BY "Date"')]
        return names, dates
    finally:
        database.close()
