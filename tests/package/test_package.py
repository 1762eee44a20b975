# SPDX-License-Identifier: GPL-3.0-or-later
"""The package: its contents, and the first start by a new user from it."""

import gzip
import os
import re
import shutil
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree
from pathlib import Path

from PIL import Image

from debian_package import field, make_package, run, unpack
from driver.case import TickwellCase
from driver.tickwell import MASTERS, main_window, settings_path, wait_lines, wait_on_screen
from driver.waiting import wait_for

TIME = re.compile(r"(午前|午後)\d+時\d\d分\d\d秒").fullmatch
PAGES = ("share/man/man1/tickwell.1.gz", "share/man/ja/man1/tickwell.1.gz")
WHITE, GREEN, DARK = (255, 255, 255), (0x3E, 0xF0, 0x6A), 80  # the icon's two lines, and the most of its ground
DISCS_VARIABLE = "TICKWELL_MAKE_DISCS"


def setUpModule():
    global work, package, root
    work = tempfile.TemporaryDirectory(prefix="tickwell-package-")
    unittest.addModuleCleanup(work.cleanup)
    package = make_package(Path(work.name, "made"))
    root = unpack(package, Path(work.name, "root"))


class Contents(unittest.TestCase):
    def test_lintian_has_nothing_to_say(self):
        self.assertEqual(run("lintian", "--allow-root", "--fail-on", "error,warning", package), "")

    def test_the_desktop_entry_is_valid_and_starts_an_installed_program(self):
        entry = root / "usr/share/applications/tickwell.desktop"
        self.assertEqual(run("desktop-file-validate", entry), "")
        lines = entry.read_text("utf-8").splitlines()
        for line in ("Name=Tickwell", "Exec=tickwell", "Icon=tickwell", "Terminal=false"):
            self.assertIn(line, lines)
        for key in ("Comment=", "Comment[ja]=", "Keywords=", "Keywords[ja]="):
            self.assertTrue(any(line.startswith(key) for line in lines), key)
        actions = [line.partition(" ")[2] for line in lines if line.startswith("Exec=") and " " in line]
        self.assertEqual(actions, ["--menu", "--open calendar", "--open timer", "--open stopwatch", "--open help"])

    def test_the_metainfo_is_valid_and_names_this_version(self):
        metainfo = root / "usr/share/metainfo/tickwell.metainfo.xml"
        run("appstreamcli", "validate", "--no-net", metainfo)
        component = ElementTree.parse(metainfo).getroot()
        self.assertEqual(component.find("launchable").text, "tickwell.desktop")
        self.assertEqual(component.find("project_license").text, "GPL-3.0-or-later")
        self.assertTrue(component.find("url[@type='homepage']").text.startswith("https://"))
        pictures = Path(__file__).resolve().parents[2] / "docs/pictures"
        shown = [Path(image.text).name for image in component.iterfind("screenshots/screenshot/image")]
        self.assertGreater(len(shown), 1)
        self.assertEqual([name for name in shown if not (pictures / name).is_file()], [])
        self.assertTrue(component.find("releases/release/description/p").text)
        newest = component.find("releases/release").get("version")
        self.assertEqual(run(root / "usr/bin/tickwell", "--version"), f"Tickwell {newest}\n")

    def test_the_package_is_of_this_version(self):
        version = field(package, "Version")
        self.assertEqual(run(root / "usr/bin/tickwell", "--version"), f"Tickwell {version.partition('-')[0]}\n")
        changes = gzip.decompress((root / "usr/share/doc/tickwell/changelog.Debian.gz").read_bytes()).decode()
        self.assertTrue(changes.startswith(f"tickwell ({version}) "), changes[:40])

    def test_it_depends_on_what_it_needs(self):
        depends = field(package, "Depends")
        self.assertRegex(depends, r"\blibsdl2-2\.0-0\b")  # of the helper that plays sound
        self.assertRegex(depends, r"\bfonts-monapo\b")
        self.assertRegex(field(package, "Recommends"), r"\bxwayland\b")  # without it, no clock in a Wayland session

    def test_the_manual_pages_are_set_without_a_warning(self):
        environment = os.environ | {"LC_ALL": "C.UTF-8", "MANROFFSEQ": "", "MANWIDTH": "80"}
        for page in PAGES:
            with self.subTest(page):
                warnings = subprocess.run(
                    ["man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", root / "usr" / page],
                    env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True, check=True).stderr
                self.assertEqual(warnings, "")

    def test_the_manual_pages_name_the_existing_options(self):
        def options(text):
            return set(re.findall(r"--[a-z]+", text))
        known = options(run(root / "usr/bin/tickwell", "--help"))
        self.assertIn("--folder", known)
        for page in PAGES:
            with self.subTest(page):
                text = gzip.decompress((root / "usr" / page).read_bytes()).decode("utf-8").replace(r"\-", "-")
                self.assertEqual(options(text), known)

    def test_every_size_of_the_icon_is_where_desktops_look(self):
        icons = root / "usr/share/icons/hicolor"
        sizes = {path.relative_to(icons).parts[0] for path in icons.rglob("apps/tickwell.*")}
        self.assertEqual(sizes, {"scalable", *(f"{size}x{size}" for size in (16, 22, 24, 32, 48, 64, 128, 256))})

    def test_the_lines_of_the_icon_are_sharp_in_every_size(self):
        """In a column of pixels through both lines, each pixel has the colour of a line or of the dark background,
        nothing in between."""
        icons = root / "usr/share/icons/hicolor"
        for size in (16, 22, 24, 32, 48, 64):
            with self.subTest(size), Image.open(icons / f"{size}x{size}/apps/tickwell.png") as icon:
                self.assertEqual(icon.size, (size, size))
                pixels = icon.convert("RGB")
                below = [pixels.getpixel((size // 4, y)) for y in range(size * 43 // 64, size * 60 // 64)]
                lines = [pixel for pixel in below if pixel in (WHITE, GREEN)]
                self.assertEqual({WHITE, GREEN}, set(lines))
                self.assertEqual([pixel for pixel in below if pixel not in lines and max(pixel) > DARK], [])

    def test_it_has_no_maintainer_scripts(self):
        """Without scripts no removal can touch user data."""
        control = Path(work.name, "control")
        run("dpkg-deb", "--control", package, control)
        self.assertEqual(sorted(os.listdir(control)), ["control", "md5sums"])


class FirstStart(TickwellCase):
    """A user's first start of the program, with a CD in the drive."""

    def setUp(self):
        super().setUp()
        self.root = unpack(package, self.session.directory / "root")
        self.data = self.session.home / ".local/share/tickwell"
        discs = self.session.directory / "discs"
        subprocess.run([os.environ[DISCS_VARIABLE], discs], check=True, stdout=subprocess.DEVNULL, timeout=60)
        self.disc = {"TICKWELL_CD": str(discs / "three_tones.cue")}

    def start(self):
        self.app = self.session.wait_app(self.session.spawn([self.root / "usr/bin/tickwell"], environment=self.disc))
        wait_lines(self.app, upper="Tickwell Ver.2")
        self.window = wait_on_screen(self.session, self.app)

    def choose(self, caption):
        self.session.hand.click(main_window(self.app))
        self.session.hand.click(self.app.wait(role="popup menu", name="メニュー").wait(name=caption))

    def end(self):
        self.choose("終了")
        self.assertEqual(self.app.program.wait_end(), 0)
        self.assertEqual(self.app.program.output(), "")

    def kept(self):
        """The user's files with their contents."""
        files = [path for path in self.session.home.rglob("*") if path.is_file() and {"tickwell", "TKW2"} & set(path.parts)]
        return {path: path.read_bytes() for path in files}

    def test_the_clock_comes_up_and_the_folder_is_filled(self):
        self.assertFalse(self.data.exists() or settings_path(self.session).exists())
        self.start()
        wait_lines(self.app, upper=re.compile("平成").match, lower=TIME)
        self.assertLessEqual(set(MASTERS), set(os.listdir(self.data)))
        for name in set(MASTERS) - {"DayDate.mdb"}:
            self.assertEqual((self.data / name).read_bytes(), (self.root / "usr/share/tickwell" / name).read_bytes())
        self.choose("CDﾌﾟﾚｰﾔｰ")  # the helper that reads discs is not in the program's folder
        wait_lines(self.app, upper="全トラック数 3")
        self.end()

    def test_the_users_files_outlive_the_package(self):
        self.start()
        self.session.windows.close_window(self.window)
        self.assertEqual(self.app.program.wait_end(), 0)
        self.assertTrue(settings_path(self.session).exists())
        before = self.kept()
        shutil.rmtree(self.root)
        self.assertEqual(self.kept(), before)
        unpack(package, self.root)
        self.start()
        self.end()
        self.assertEqual(self.kept()[self.data / "DayDate.mdb"], before[self.data / "DayDate.mdb"])

    def test_the_installed_program_starts_at_the_login(self):
        self.start()
        self.choose("環境設定")
        dialog = self.app.wait(role="dialog", name="環境設定", showing=True)
        self.session.windows.wait(name="環境設定", pid=self.app.program.pid)
        self.session.hand.click(dialog.wait(role="check box", name="ログイン時に起動する"))
        self.session.hand.click(dialog.wait(role="push button", name="OK"))
        entry = self.session.home / ".config/autostart/tickwell.desktop"
        wait_for(entry.exists, "the entry written")
        self.assertEqual(run("desktop-file-validate", entry), "")
        self.assertIn(f"Exec={self.root}/usr/bin/tickwell", entry.read_text("utf-8").splitlines())


if __name__ == "__main__":
    unittest.main()
