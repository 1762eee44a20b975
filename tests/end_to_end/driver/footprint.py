# SPDX-License-Identifier: GPL-3.0-or-later
"""The resources that a program holds; they must be the same after a long time as after a short one."""

import re
from collections import Counter
from pathlib import Path
from typing import NamedTuple

from Xlib.display import Display

from driver.sound_pipe import open_files


class Footprint(NamedTuple):
    """Everything except memory, which is never the same to the byte."""
    files: Counter        # targets of the descriptors, without the numbers of sockets and pipes
    children: int         # processes
    threads: int
    x_resources: Counter  # windows, pixmaps, cursors … on the X server, by type
    widgets: int          # accessible objects, hidden windows included


def footprint(app, display):
    """`app`: the program's root node; `display`: the name of its screen."""
    pid = app.program.pid
    tasks = list(Path(f"/proc/{pid}/task").iterdir())
    files = Counter(re.sub(r":\[\d+\]", "", name) for name in open_files(pid))
    children = sum(len((task / "children").read_text().split()) for task in tasks)
    return Footprint(files, children, len(tasks), _x_resources(display, pid), sum(1 for _ in app.walk()))


def anonymous_memory(pid):
    """The program's resident anonymous memory in bytes."""
    rollup = Path(f"/proc/{pid}/smaps_rollup").read_text(encoding="ascii")
    return int(re.search(r"^Anonymous:\s+(\d+) kB", rollup, re.MULTILINE)[1]) * 1024


def _x_resources(name, pid):
    display = Display(name)
    try:
        root = display.screen().root
        process = display.intern_atom("_NET_WM_PID")
        windows = []

        def collect(window):
            for child in window.query_tree().children:
                found = child.get_full_property(process, 0)
                if found is not None and found.value[0] == pid:
                    windows.append(child.id)
                collect(child)
        collect(root)
        total = Counter()
        for client in display.res_query_clients().clients:
            if any(window & ~client.resource_mask == client.resource_base for window in windows):
                for kind in display.res_query_client_resources(client.resource_base).types:
                    total[display.get_atom_name(kind.resource_type)] += kind.count
        return total
    finally:
        display.close()
