# SPDX-License-Identifier: GPL-3.0-or-later
"""A day database of the Jet format that a user brings along."""

import shutil
import sqlite3
import unittest
from pathlib import Path

from driver.case import TickwellCase
from driver.tickwell import make_folder, start_tickwell, wait_lines

SAMPLES = Path(__file__).resolve().parents[1] / "data/jet"


class Import(TickwellCase):
    def start(self, sample):
        self.folder = self.session.directory / sample
        make_folder(self.folder)
        shutil.copyfile(SAMPLES / sample, self.folder / "DayDate.mdb")
        return start_tickwell(self.session, folder=self.folder)

    def test_it_is_imported_once_and_told(self):
        for sample in ("jet3_full.mdb", "jet4_full.mdb"):
            with self.subTest(sample):
                app = self.start(sample)
                wait_lines(app, upper="Tickwell Ver.2")
                box = app.wait(role="alert message", name="Tickwell")
                box.find(role="push button").press_and_go()
                app.wait_gone(role="alert message")
                self.assertEqual((self.folder / "DayDate.jet.mdb").read_bytes(), (SAMPLES / sample).read_bytes())
                with sqlite3.connect(f"file:{self.folder / 'DayDate.mdb'}?mode=ro", uri=True) as database:
                    rows = database.execute('SELECT count(*) FROM "Kinenbi"').fetchone()[0]
                database.close()
                self.assertGreater(rows, 0)
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
