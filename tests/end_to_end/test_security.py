# SPDX-License-Identifier: GPL-3.0-or-later
"""Untrusted input, and what the program must not do with it."""

import html
import os
import socket
import sqlite3
import stat
import subprocess
import sys
import unittest

from driver.case import TickwellCase
from driver.opened_files import OpenedFile
from driver.sockets import listening_local_sockets, network_sockets
from driver.tickwell import make_folder, start_tickwell, wait_lines, wait_on_screen
from driver.tool_windows import choose, wait_window
from driver.virtual_time import VirtualTime
from driver.waiting import wait_for

START_UP_DELAY = 11000  # ms
TURN = 10000
NOBODY = 65534
CALL = """
import socket, sys
caller = socket.socket(socket.AF_UNIX)
caller.connect(sys.argv[1])
caller.sendall(b"menu\\n")
"""
# Every pixel has a colour, so the picture is a valid file.
PICTURE = b"P6 2 2 255 " + bytes(range(12))


class SecurityCase(TickwellCase):
    def start(self, **options):
        self.time = VirtualTime("2026-11-20T12:00:00")
        self.addCleanup(self.time.close)
        self.app = start_tickwell(self.session, virtual_time=self.time, **options)
        wait_lines(self.app, upper="Tickwell Ver.2")
        wait_on_screen(self.session, self.app)
        self.time.advance(START_UP_DELAY)

    def choose(self, caption, title=None):
        choose(self.session, self.app, caption)
        return wait_window(self.app, title or caption)


class Listening(SecurityCase):
    def open_all(self):
        """Opens every window that the menu can open; the settings last, because they block the others."""
        for function, title in (("ｽﾄｯﾌﾟｳｫｯﾁ", "ストップウォッチ"), ("ﾀｲﾏｰ", "タイマー"), ("CDﾌﾟﾚｰﾔｰ", "CDプレーヤー")):
            choose(self.session, self.app, function)
            self.choose("操作ｳｨﾝﾄﾞｳの表示", title)
        self.choose("カレンダー")
        choose(self.session, self.app, "ﾍﾙﾌﾟ")
        self.app.wait(name="Tickwell ヘルプ", showing=True)
        self.choose("バージョン情報", "Tickwellのﾊﾞｰｼﾞｮﾝ情報")
        self.choose("環境設定")

    def socket_path(self):
        folder = self.session.directory / "run"
        found = [path for path in folder.iterdir() if path.name.startswith("tickwell-") and path.is_socket()]
        self.assertEqual(len(found), 1, found)
        return found[0]

    def test_the_one_socket_is_the_users_alone(self):
        self.start()
        self.open_all()
        self.assertEqual(network_sockets(self.app.program.pid), [])
        self.assertEqual(listening_local_sockets(self.app.program.pid), 1)
        path = self.socket_path()
        self.assertEqual(stat.S_IMODE(path.stat().st_mode) & 0o077, 0)

    def test_a_network_socket_would_be_seen(self):
        for kind in (socket.SOCK_STREAM, socket.SOCK_DGRAM):
            with socket.socket(socket.AF_INET, kind) as heard:
                heard.bind(("127.0.0.1", 0))
                if kind == socket.SOCK_STREAM:
                    heard.listen()
                self.assertEqual(len(network_sockets(os.getpid())), 1)

    @unittest.skipIf(os.geteuid() != 0, "only root can start a program as another user")
    def test_another_user_is_refused(self):
        self.start()
        path = self.socket_path()
        for folder in (self.session.directory, path.parent):
            folder.chmod(0o755)  # so that only the socket's own permissions decide
        call = [sys.executable, "-c", CALL, str(path)]
        stranger = subprocess.run(call, user=NOBODY, group=NOBODY, extra_groups=[], stderr=subprocess.PIPE, text=True)
        self.assertIn("PermissionError", stranger.stderr)
        self.assertEqual(subprocess.run(call).returncode, 0)
        self.app.wait(role="popup menu", name="メニュー")


class Programs(SecurityCase):
    def test_a_tool_in_a_folder_of_shell_words(self):
        folder = make_folder(self.session.directory / 'a $(touch told);touch told "b" `touch told` & touch told #')
        tool = folder / "KT01.exe"
        tool.write_text('#!/bin/sh\nprintf "%s|" "$#" "$@" "$PWD" >words.part && mv words.part words\n', "ascii")
        tool.chmod(0o755)
        self.start(folder=folder)
        choose(self.session, self.app, "ツール")
        self.session.hand.click(self.app.wait(role="popup menu", name="ツール").wait(name="電卓"))
        words = folder / "words"
        wait_for(words.exists, "the tool's words")
        self.assertEqual(words.read_text("utf-8"), f"1|VeskOnly|{folder}|")
        self.assertEqual(list(self.session.directory.rglob("told*")), [])


class OutsideText(SecurityCase):
    """Names that contain markup; if they were rendered as markup, a picture file would be opened."""

    def setUp(self):
        super().setUp()
        self.picture = self.session.directory / "picture.ppm"
        self.picture.write_bytes(PICTURE)
        self.markup = f'<b>x</b>&amp;<img src="{self.picture}">'
        self.watch = OpenedFile(self.picture)
        self.addCleanup(self.watch.close)
        self.folder = make_folder(self.session.directory / "a <b>folder&amp;")

    def tearDown(self):
        self.assertFalse(self.watch.was_opened())
        self.picture.read_bytes()
        self.assertTrue(self.watch.was_opened())  # the watch works
        super().tearDown()

    def wait_tip(self, node):
        """Waits until a tool tip is shown below the centre of a node."""
        x, y, width, height = node.extents
        below = (x + width // 2 + 8, y + height // 2 + 24, 60, 12)
        before = self.session.grab(below).tobytes()
        self.session.hand.move(node)
        wait_for(lambda: self.session.grab(below).tobytes() != before, "a tool tip")

    def test_the_name_of_an_anniversary(self):
        with sqlite3.connect(self.folder / "DayDate.mdb") as database:
            database.execute("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES (?,0,11,20,0)", [self.markup])
            database.execute("INSERT INTO Syukuzitu(Name,Month,Day) VALUES (?,11,20)", [self.markup])
        database.close()
        self.start(folder=self.folder)
        self.time.advance(TURN)
        wait_lines(self.app, upper=self.markup)
        calendar = self.choose("カレンダー")
        self.session.windows.wait(name="カレンダー", pid=self.app.program.pid)
        day = calendar.wait(name=lambda name: name.startswith("2026年11月20日 "), showing=True)
        self.assertIn(self.markup, day.name)
        self.wait_tip(day)
        self.session.hand.click(calendar.wait(name="記念日の一覧を開く"))
        self.session.hand.click(calendar.wait(role="cell", name=self.markup))
        self.session.hand.click(calendar.wait(role="push button", name="編集"))
        editor = self.app.wait(role="dialog", name="記念日の編集", showing=True,
                               which=lambda node: "active" in node.states)
        self.assertTrue(editor.wait(role="text", which=lambda node: node.text == self.markup))
        self.session.hand.key("Escape")
        self.app.wait_gone(role="dialog", name="記念日の編集", showing=True)
        self.session.hand.click(calendar.wait(role="push button", name="削除"))
        deletion = self.app.wait(role="dialog", name="記念日の削除", showing=True)
        deletion.wait(name=lambda name: self.markup in name, showing=True)

    def test_the_path_of_a_tool_in_an_error(self):
        (self.folder / "KT01.exe").write_bytes(b"no program")
        self.start(folder=self.folder)
        choose(self.session, self.app, "ツール")
        self.session.hand.click(self.app.wait(role="popup menu", name="ツール").wait(name="電卓"))
        box = self.app.wait(role="alert message", name="Tickwell")
        label = box.wait(role="label", name=lambda name: name.startswith("実行時エラー"))
        self.assertIn(str(self.folder / "KT01.exe"), label.name)

    def test_the_value_of_a_setting(self):
        self.start(folder=self.folder, settings={"SetUp": {"Clock_File": self.markup, "A_Font": self.markup}})
        dialog = self.choose("環境設定")
        self.session.hand.click(dialog.wait(role="page tab", name="時報"))
        dialog.wait(name=self.markup)

    def test_the_help_loads_nothing_but_its_text(self):
        shown = html.escape(self.markup)
        (self.folder / "Help.hlp").write_text(
            f'<html><head><link rel="stylesheet" type="text/css" href="{self.picture}"></head><body>'
            f'<h1>Help</h1><h2><a name="t"></a>{shown}</h2><p><img src="{self.picture}">'
            f'<img src="file://{self.picture}"></p><table background="{self.picture}"><tr><td>x</td></tr></table>'
            f'<p style="background-image: url({self.picture})">y</p></body></html>', encoding="utf-8")
        self.start(folder=self.folder)
        choose(self.session, self.app, "ﾍﾙﾌﾟ")
        window = self.app.wait(name="Tickwell ヘルプ", showing=True)
        self.wait_tip(window.wait(role="tree item", name=self.markup))


if __name__ == "__main__":
    unittest.main()
