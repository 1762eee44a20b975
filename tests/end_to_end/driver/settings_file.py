# SPDX-License-Identifier: GPL-3.0-or-later
"""The program's settings file as {section: {key: value}} of strings."""

import re

ESCAPES = {"\\": "\\", "n": "\n", "r": "\r", "s": " ", "t": "\t", "0": "\0"}
LETTERS = {character: letter for letter, character in ESCAPES.items()}


def write_settings(path, settings):
    """Writes a complete file; creates missing folders."""
    lines = []
    for section, values in settings.items():
        lines.append(f"[{section}]")
        lines += [f"{key}={_escaped(str(value))}" for key, value in values.items()]
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text("".join(line + "\n" for line in lines), encoding="utf-8", newline="")


def read_settings(path):
    """Reads a file. A section may occur several times; if a key occurs twice, the first occurrence counts."""
    settings, section = {}, None
    for line in path.read_bytes().decode("utf-8-sig").split("\n"):
        line = line.removesuffix("\r").strip(" \t")
        key, equals, value = line.partition("=")
        if line.startswith("[") and line.endswith("]"):
            section = settings.setdefault(line[1:-1].strip(" \t"), {})
        elif section is not None and key and equals and line[0] not in "#;":
            section.setdefault(key.strip(" \t"), _unescaped(value.strip(" \t")))
    return settings


def _escaped(value):
    """Escapes backslashes and line breaks everywhere, blanks only at the ends, where a reader would drop them."""
    return re.sub(r"\A[ \t]|[ \t]\Z|[\\\n\r\0]", lambda found: "\\" + LETTERS[found[0]], value)


def _unescaped(stored):
    """Reverses _escaped. A backslash before any other letter is kept."""
    return re.sub(r"\\([\\nrst0])", lambda found: ESCAPES[found[1]], stored)
