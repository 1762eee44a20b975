# SPDX-License-Identifier: GPL-3.0-or-later
"""The sockets of a process, from the kernel's tables."""

import os
import re
from pathlib import Path

NETWORK = ("tcp", "tcp6", "udp", "udp6", "udplite", "udplite6", "raw", "raw6", "icmp", "icmp6")
LISTENING = 0x10000  # flag of a local socket


def _inodes(pid):
    """The inode numbers of the sockets that the process has open."""
    found = set()
    for entry in Path(f"/proc/{pid}/fd").iterdir():
        try:
            socket = re.fullmatch(r"socket:\[(\d+)\]", os.readlink(entry))
        except FileNotFoundError:  # closed in the meantime
            continue
        if socket:
            found.add(socket[1])
    return found


def _table(pid, kind):
    """The rows of a kernel table, split into words, without the heading."""
    path = Path(f"/proc/{pid}/net/{kind}")
    return [line.split() for line in path.read_text("ascii").splitlines()[1:]] if path.exists() else []


def network_sockets(pid):
    """The process's network sockets: the table name and the local address of each."""
    own = _inodes(pid)
    return [(kind, row[1]) for kind in NETWORK for row in _table(pid, kind) if row[9] in own]


def listening_local_sockets(pid):
    """The number of local sockets that the process listens on."""
    own = _inodes(pid)
    return sum(1 for row in _table(pid, "unix") if row[6] in own and int(row[3], 16) & LISTENING)
