# SPDX-License-Identifier: GPL-3.0-or-later
"""The CD player of the real program: its window is operated with the mouse and its sound is recorded. Time is real,
because sound is."""

from pathlib import Path

from driver import processes
from driver.case import TickwellCase
from driver.disc_sound import heard, make_discs
from driver.sound_server import SoundServer
from driver.tickwell import start_tickwell, wait_lines, wait_on_screen
from driver.tool_windows import button, choose, wait_window
from driver.waiting import TimedOut, wait_for

PREVIOUS, REWIND, PLAY, PAUSE, STOP, FORWARD, NEXT = BUTTONS = (
    "前の曲に戻る", "巻戻し", "再生", "一時停止", "停止", "早送り", "次の曲に進む")
STOPPED_BUTTONS = {PREVIOUS, PLAY, NEXT}
PLAYING_BUTTONS = {*BUTTONS} - {PLAY}
FORMATS, REPEATS = "表示形式", "リピート"
NOT_READY = {"upper": "オーディオCDの準備ができていません", "lower": "再生不可"}
TITLE, TITLE_IN_MENU = "CDプレーヤー", "CDﾌﾟﾚｰﾔｰ"
PATIENCE = 60.0  # s


class CdCase(TickwellCase):
    """Provides a sound server, discs, and the player with its window open."""

    def setUp(self):
        super().setUp()
        self.server = SoundServer(self.session, rate=44100, channels=2)
        self.addCleanup(self.server.close)
        self.folder = self.session.directory / "discs"
        self.discs = make_discs(self.folder)

    def start(self, source, environment=None, cwd=None, settings=None):
        """Starts the program with this drive or image and these further settings, and opens the player's window."""
        self.app = start_tickwell(self.session,
                                  settings={"SetUp": {"Function": "6", "Clock_Int": "2"}} | (settings or {}),
                                  arguments=("--disc", source),
                                  environment=self.server.environment | (environment or {}), cwd=cwd)
        wait_lines(self.app, upper="Tickwell Ver.2")
        wait_on_screen(self.session, self.app)
        choose(self.session, self.app, TITLE_IN_MENU)
        self.open()

    def open(self):
        choose(self.session, self.app, "操作ｳｨﾝﾄﾞｳの表示")
        self.window = wait_window(self.app, TITLE)
        self.window_xid = self.session.windows.wait(name=TITLE, pid=self.app.program.pid)

    def quit(self):
        """Closes the main window; waits until the program has ended with 0 and its sound is closed."""
        self.session.windows.close_window(self.session.windows.wait(name="Tickwell", pid=self.app.program.pid))
        self.assertEqual(self.app.program.wait_end(), 0)
        self.wait_silence()

    def helpers(self):
        """The number of its helper processes that are reading discs."""
        return sum(_is_helper(pid) for pid in processes.marked(self.session.directory))

    # Controlling the player

    def press(self, name):
        self.session.hand.click(button(self.window, name))

    def play(self):
        self.press(PLAY)
        self.wait_caption("再生")

    def choose_from(self, menu, item):
        self.session.hand.click(self.window.wait(role="menu item", name=menu, showing=True))
        self.session.hand.click(self.window.wait(role="menu item", name=item, showing=True))

    # What the player shows

    def wait_caption(self, caption):
        self.window.wait(role="label", name=caption, showing=True)

    def enabled(self):
        """The names of the enabled buttons."""
        return {name for name in BUTTONS if button(self.window, name).enabled}

    def wait_enabled(self, names):
        wait_for(lambda: self.enabled() == names, f"the buttons {names}")

    def wait_lines(self, **lines):
        return wait_lines(self.app, **lines)

    def wait_total(self, tracks, time):
        self.wait_lines(upper=f"全トラック数 {tracks}", lower=f"[ Total ]    {time}")

    # What is heard

    def heard(self, disc):
        return heard(self.server.recording(), disc)

    def wait_heard(self, disc, check, what):
        """Waits until `check` is true for the pieces of the disc heard so far; returns them."""
        pieces = []

        def fits():
            pieces[:] = self.heard(disc)
            return check(pieces)
        try:
            wait_for(fits, what, PATIENCE)
        except TimedOut as error:
            raise TimedOut(f"{error}; heard was {pieces}") from None
        return pieces

    def wait_piece(self, disc, count, seconds):
        """Waits until `count` pieces were heard, the last of them for at least `seconds`; returns them."""
        return self.wait_heard(disc, lambda pieces: len(pieces) == count and pieces[-1].seconds >= seconds,
                               f"{seconds} s of piece {count}")

    def wait_silence(self):
        """Waits until no sound stream is open."""
        wait_for(lambda: self.server.streams() == 0, "the end of all sound")


def _is_helper(pid):
    try:
        return Path(f"/proc/{pid}/comm").read_text(encoding="utf-8") == "tickwell-cd\n"
    except OSError:  # it has ended in the meantime
        return False
