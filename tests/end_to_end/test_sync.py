# SPDX-License-Identifier: GPL-3.0-or-later
"""The same days on several computers: programs with folders of their own that share a folder of files."""

import random
import sqlite3
import unittest
from contextlib import closing
from datetime import date

from driver.answering import keeps_answering
from driver.calendar_hand import HOLIDAYS, NORMAL, CalendarHand
from driver.case import TickwellCase
from driver.tickwell import make_folder, read_settings, start_tickwell, wait_lines, wait_on_screen
from driver.tool_windows import choose, press, wait_window
from driver.waiting import wait_for

KILLS = 12
MANY = 100_000
LONG = 60  # s; several merges on a busy machine
USE = "記念日と休日の印をほかのコンピューターと合わせる"


def first_wednesday():
    """The first Wednesday of this month, as the calendar names its cell."""
    today = date.today()
    day = next(day for day in range(1, 8) if today.replace(day=day).isoweekday() == 3)
    return f"{today.year}年{today.month}月{day}日"


class Computer:
    """A program folder, and its program if it runs."""

    def __init__(self, case, name, place=0):
        self.case, self.name, self.place = case, name, place
        self.folder = make_folder(case.session.directory / name)
        self.app = None

    def start(self, sync=True):
        settings = {"Sync": {"Use": "True", "Folder": str(self.case.shared), "Computer": self.name}} if sync else {}
        settings |= {"SetUp": {"Win_Left": str(4500 * self.place)}}  # beside the others
        self.app = start_tickwell(self.case.session, folder=self.folder, settings=settings)
        return self

    def kill(self):
        self.app.program.kill()

    def run(self, sql, *values):
        with closing(sqlite3.connect(self.folder / "DayDate.mdb", timeout=20)) as database:
            rows = database.execute(sql, values).fetchall()
            database.commit()
            return rows

    def add(self, name):
        self.run("INSERT INTO Kinenbi(Name, Year, Month, Day, Week) VALUES(?, 0, 5, 5, 0)", name)

    def names(self):
        return sorted(name for name, in self.run("SELECT Name FROM Kinenbi"))

    def rows(self):
        return [sorted(self.run(f"SELECT {columns} FROM {table}")) for table, columns in
                (("Kinenbi", "Name, Year, Month, Day, Week"), ("Syukuzitu", "Name, Month, Day"), ("Holiday", "Date"),
                 ("Halfday", "Date"), ("Usuallyday", "Date"))]

    @property
    def file(self):
        return self.case.shared / f"{self.name}.tickwell-days"


class Sync(TickwellCase):
    def setUp(self):
        super().setUp()
        self.shared = self.session.directory / "shared"
        self.shared.mkdir()

    def computers(self, *names):
        return [Computer(self, name, place) for place, name in enumerate(names)]

    def wait_names(self, computers, *names):
        wait_for(lambda: all(each.names() == sorted(names) for each in computers),
                 f"{names} on all computers", LONG)

    def test_three_computers(self):
        study, laptop, office = all_three = self.computers("study", "laptop", "office")
        for each in all_three:
            each.add(f"from {each.name}")
            each.start()
        self.wait_names(all_three, "from laptop", "from office", "from study")
        self.assertEqual(study.rows(), laptop.rows())
        self.assertEqual(len(study.rows()[1]), 10)  # the delivered holidays, once

        # What the user adds is sent when the window closes.
        wait_on_screen(self.session, study.app)
        calendar = CalendarHand(self.session, study.app)
        calendar.open_list()
        calendar.add("by hand")
        calendar.wait_added()
        calendar.mark(first_wednesday())
        calendar.close()
        self.wait_names(all_three, "by hand", "from laptop", "from office", "from study")
        wait_for(lambda: study.rows() == laptop.rows() == office.rows(), "the mark on all computers", LONG)

        # What is changed while the program does not run is found at its next start.
        laptop.kill()
        laptop.run("DELETE FROM Kinenbi WHERE Name = 'from study'")
        laptop.run("UPDATE Kinenbi SET Name = 'edited' WHERE Name = 'from office'")
        laptop.start()
        self.wait_names(all_three, "by hand", "edited", "from laptop")
        three = ["laptop.tickwell-days", "office.tickwell-days", "study.tickwell-days"]
        wait_for(lambda: sorted(path.name for path in self.shared.iterdir()) == three,
                 "the three files alone, none of them being written", LONG)

    def test_never_while_days_are_marked(self):
        study, laptop = both = self.computers("study", "laptop")
        study.start()
        wait_on_screen(self.session, study.app)
        wait_for(study.file.exists, "the first merge", LONG)
        calendar = CalendarHand(self.session, study.app)
        calendar.choose(HOLIDAYS)
        laptop.add("while marking")
        laptop.start()
        wait_for(laptop.file.exists, "the other's file", LONG)
        # The other one has read everything; this one does not even look.
        laptop.kill()
        laptop.add("later")
        laptop.start()
        wait_for(lambda: "later" in laptop.file.read_text(encoding="utf-8"), "the other's second merge", LONG)
        self.assertEqual(study.names(), [])
        calendar.choose(NORMAL)
        self.wait_names(both, "later", "while marking")

    def test_damaged_files_are_named(self):
        study, = self.computers("study")
        (self.shared / "broken.tickwell-days").write_text("Tickwell days 1\nreplica\t12", encoding="utf-8")
        (self.shared / "foreign.tickwell-days").write_bytes(b"\x89PNG\r\n")
        (self.shared / "unrelated.txt").write_text("text", encoding="utf-8")
        before = {path.name: path.read_bytes() for path in self.shared.iterdir()}
        study.start()
        wait_on_screen(self.session, study.app)
        wait_for(study.file.exists, "the merge", LONG)
        choose(self.session, study.app, "環境設定")
        settings = wait_window(study.app, "環境設定")
        settings.wait(role="page tab", name="データベース").press()
        status = settings.wait(role="label", name=lambda name: name.startswith("最後に合わせた時刻"), showing=True).name
        self.assertIn("そのままにしたファイル：broken.tickwell-days（途中で切れているか、壊れています。）", status)
        self.assertIn("そのままにしたファイル：foreign.tickwell-days（このプログラムのファイルではありません。）", status)
        self.assertNotIn("unrelated", status)
        after = {path.name: path.read_bytes() for path in self.shared.iterdir() if path != study.file}
        self.assertEqual(after, before)

    def test_switched_on_by_keyboard(self):
        study, = self.computers("study")
        study.start(sync=False)
        wait_on_screen(self.session, study.app)
        choose(self.session, study.app, "環境設定")
        settings = wait_window(study.app, "環境設定")
        settings.wait(role="page tab", name="データベース").press()
        box = settings.wait(role="check box", name=USE, showing=True)
        folder = settings.wait(role="text", name="合わせるためのフォルダー", showing=True)
        name = settings.wait(role="text", name="このコンピューターの名前", showing=True)
        self.assertNotIn("enabled", folder.states)
        box.grab_focus()
        wait_for(lambda: "focused" in box.states, "the box focused")
        self.session.hand.key("space")
        wait_for(lambda: "focused" in folder.states, "the field of the folder focused")
        self.session.hand.type(str(self.shared))
        wait_for(lambda: folder.text == str(self.shared), "the folder typed")
        self.session.hand.key("Tab", "Tab")
        wait_for(lambda: "focused" in name.states, "the field of the name focused")
        self.session.hand.type("desk")
        self.session.hand.key("Return")
        study.app.wait_gone(role="dialog", name="環境設定", showing=True)
        wait_for((self.shared / "desk.tickwell-days").exists, "the file", LONG)
        choose(self.session, study.app, "環境設定")
        settings = wait_window(study.app, "環境設定")
        settings.wait(role="page tab", name="データベース").press()
        settings.wait(role="label", name=lambda text: text.startswith("最後に合わせた時刻"), showing=True)
        (self.shared / "desk.tickwell-days").unlink()
        press(settings, "今すぐ合わせる")
        wait_for((self.shared / "desk.tickwell-days").exists, "the file again", LONG)
        self.session.hand.click(settings.wait(role="check box", name=USE, showing=True))
        press(settings, "OK")
        study.app.wait_gone(role="dialog", name="環境設定", showing=True)
        choose(self.session, study.app, "終了")
        self.assertEqual(study.app.program.wait_end(), 0)
        stored = read_settings(self.session)["Sync"]
        self.assertEqual(stored["Computer"], "desk")
        self.assertNotEqual(stored.get("Use"), "True")

    def test_nothing_exists_while_it_is_off(self):
        study, = self.computers("study")
        study.start(sync=False)
        wait_lines(study.app, upper="Tickwell Ver.2")
        self.assertEqual([path.name for path in study.folder.iterdir() if "Sync" in path.name], [])
        self.assertEqual(list(self.shared.iterdir()), [])

    def test_a_hundred_thousand_rows(self):
        """They arrive, and the window keeps responding meanwhile."""
        study, laptop = both = self.computers("study", "laptop")
        study.run(f"""WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < {MANY})
            INSERT INTO Kinenbi(Name, Year, Month, Day, Week)
            SELECT '記念日その' || i, 0, 1 + i % 12, 1 + i % 28, 0 FROM n""")
        laptop.start()
        wait_on_screen(self.session, laptop.app)
        wait_for(laptop.file.exists, "the first merge", LONG)
        before = laptop.file.stat().st_mtime_ns

        def count(computer):
            return computer.run("SELECT count(*) FROM Kinenbi")[0][0]
        with keeps_answering(self.session, laptop.app.program):
            study.start()
            wait_for(lambda: laptop.file.stat().st_mtime_ns != before, "the rows on the other computer", 4 * LONG)
        self.assertEqual([count(each) for each in both], [MANY, MANY])
        study.kill()
        study.run("DELETE FROM Kinenbi WHERE id % 10 = 0")
        before = laptop.file.stat().st_mtime_ns
        with keeps_answering(self.session, laptop.app.program):
            study.start()
            wait_for(lambda: laptop.file.stat().st_mtime_ns != before, "the deletions on the other computer", 4 * LONG)
        self.assertEqual([count(each) for each in both], [MANY * 9 // 10] * 2)

    def test_kills(self):
        """Two programs are killed at random moments while days are added and deleted; no row is lost or comes back."""
        chance = random.Random(1)
        study, laptop = both = self.computers("study", "laptop")
        expected = set()
        for number in range(KILLS):
            each = chance.choice(both)
            for new in range(30):
                each.add(f"{number} {new}")
                expected.add(f"{number} {new}")
            for gone in chance.sample(each.names(), 5):
                each.run("DELETE FROM Kinenbi WHERE Name = ?", gone)
                expected.discard(gone)
            each.start()
            written = each.file.stat().st_mtime_ns if each.file.exists() else 0
            if chance.random() < 0.3:
                wait_for(lambda: each.file.exists() and each.file.stat().st_mtime_ns != written, "a merge", LONG)
            else:
                try:
                    each.app.program.wait_end(timeout=2 + chance.random())
                except Exception:  # it is expected to run
                    pass
            each.kill()
        for each in both:
            each.start()
        self.wait_names(both, *expected)


if __name__ == "__main__":
    unittest.main()
