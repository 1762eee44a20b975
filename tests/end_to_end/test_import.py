# SPDX-License-Identifier: GPL-3.0-or-later
"""Importing a user's day database in Jet format."""

import shutil
import sqlite3
import unittest
from contextlib import closing
from pathlib import Path

from driver.case import TickwellCase
from driver.tickwell import make_folder, start_tickwell, wait_lines

SAMPLES = Path(__file__).resolve().parents[1] / "data/jet"
EXPECTED = {"jet3_full.mdb": "expected_jet3.tsv", "jet4_full.mdb": "expected.tsv"}
COUNTED = "記念日 {}件、祝日 {}件、休日 {}件、半日 {}件、平日 {}件\n"
TABLES = ("Kinenbi", "Syukuzitu", "Holiday", "Halfday", "Usuallyday")


def expected_rows(sample):
    """The rows of each table in order, as texts."""
    rows = {table: [] for table in TABLES}
    for line in (SAMPLES / EXPECTED[sample]).read_text(encoding="utf-8").splitlines():
        table, *values = line.split("\t")
        rows[table].append([value.replace("\\n", "\n").replace("\\\\", "\\") for value in values])
    return rows


def stored_rows(path):
    with closing(sqlite3.connect(f"file:{path}?mode=ro", uri=True)) as database:
        return {table: [[str(value) for value in row[1:]]
                        for row in database.execute(f'SELECT * FROM "{table}" ORDER BY id')] for table in TABLES}


class Import(TickwellCase):
    def start(self, sample):
        self.folder = self.session.directory / sample
        make_folder(self.folder)
        shutil.copyfile(SAMPLES / sample, self.folder / "DayDate.mdb")
        return start_tickwell(self.session, folder=self.folder)

    def test_it_is_imported_once_and_reported(self):
        for sample in ("jet3_full.mdb", "jet4_full.mdb"):
            with self.subTest(sample):
                expected = expected_rows(sample)
                app = self.start(sample)
                wait_lines(app, upper="Tickwell Ver.2")
                box = app.wait(role="alert message", name="Tickwell")
                told = "".join(label.name for label in box.find_all(role="label"))
                counts = COUNTED.format(*(len(expected[table]) for table in TABLES))
                self.assertIn("以前の形式（Jet）のデータベースを読み込みました。", told)
                self.assertIn(counts, told)
                self.assertIn("元のファイルは DayDate.jet.mdb として残してあります。", told)
                box.find(role="push button").press_and_go()
                app.wait_gone(role="alert message")
                self.assertEqual((self.folder / "DayDate.jet.mdb").read_bytes(), (SAMPLES / sample).read_bytes())
                self.assertEqual(stored_rows(self.folder / "DayDate.mdb"), expected)
                app.program.stop()
                again = start_tickwell(self.session, folder=self.folder)
                wait_lines(again, upper="Tickwell Ver.2")
                self.assertIsNone(again.find(role="alert message"))
                again.program.stop()

    def test_a_damaged_one_is_refused_and_stays(self):
        app = self.start("jet3_truncated.mdb")
        box = app.wait(role="alert message", name="Tickwell スタートエラー")
        self.assertTrue(box.find(role="label", name=lambda text: "DayDate.mdb" in text), box.dump())
        box.find(role="push button").press_and_go()
        self.assertEqual(app.program.wait_end(), 1)
        self.assertEqual((self.folder / "DayDate.mdb").read_bytes(), (SAMPLES / "jet3_truncated.mdb").read_bytes())
        self.assertFalse((self.folder / "DayDate.jet.mdb").exists())


if __name__ == "__main__":
    unittest.main()
