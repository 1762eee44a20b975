# SPDX-License-Identifier: GPL-3.0-or-later
"""The package of the tested build."""

import os
import subprocess
from pathlib import Path

BUILD_VARIABLE = "TICKWELL_BUILD"


def run(*command, **options):
    """Runs a command; returns its standard output and error. Its failure raises AssertionError with both."""
    words = [str(word) for word in command]
    result = subprocess.run(words, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False, **options)
    if result.returncode != 0:
        raise AssertionError(f"{' '.join(words)}: {result.returncode}\n{result.stdout}")
    return result.stdout


def make_package(folder):
    """Packages the current build into a folder; returns the package's path."""
    build = os.environ[BUILD_VARIABLE]
    run("cpack", "--config", f"{build}/CPackConfig.cmake", "-G", "DEB", "-B", folder, cwd=build)
    packages = list(Path(folder).glob("*.deb"))
    assert len(packages) == 1, packages
    return packages[0]


def unpack(package, root):
    """Unpacks the package's files below a folder, as an installation would below /."""
    run("dpkg-deb", "--extract", package, root)
    return Path(root)


def field(package, name):
    """A field of the package's control file."""
    return run("dpkg-deb", "--field", package, name).strip()
