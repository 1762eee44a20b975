# SPDX-License-Identifier: GPL-3.0-or-later
"""Locales that a machine may lack, built for a test."""

import subprocess


def make_locales(folder, *names):
    """Builds locales such as "ja_JP.UTF-8" with localedef. Returns the variable that makes programs find them."""
    folder.mkdir()
    for name in names:
        language, charset = name.split(".")
        # Exits with 1 for mere warnings if the folder of the system's locales is not writable.
        subprocess.run(["localedef", "--no-archive", "-i", language, "-f", charset, folder / name], check=False,
                       capture_output=True)
        if not (folder / name / "LC_CTYPE").is_file():
            raise RuntimeError(f"localedef did not build {name}")
    return {"LOCPATH": str(folder)}
