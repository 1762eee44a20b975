# SPDX-License-Identifier: GPL-3.0-or-later
"""A program that has only a virtual clock, controlled from outside: virtual_clock.py --virtual-time=IN,OUT,WALL,TICK

It has one timer of 1000 ms. It does not answer an advance by 13 ms, and exits at an advance by 666 ms.
"""

import os
import sys
from datetime import datetime, timedelta

PERIOD = 1000  # ms
SILENT, DEADLY = 13, 666  # ms


class VirtualClock:
    """The time, and the answers to the commands that change it."""

    def __init__(self, option):
        self.read_end, self.write_end, wall, tick = option.partition("=")[2].split(",")
        self.read_end, self.write_end, self.tick = int(self.read_end), int(self.write_end), int(tick)
        self.wall = datetime.fromisoformat(wall)
        self._due = PERIOD  # ms until the timer is due

    def serve(self):
        """Answers pending commands. Returns False if the other side has closed the pipe."""
        commands = os.read(self.read_end, 4096).decode().splitlines()
        for command in commands:
            answer = self._answer(*command.split(" "))
            if answer:
                os.write(self.write_end, f"{answer}\n".encode())
        return bool(commands)

    def _answer(self, word, argument=""):
        if word == "advance" and argument.isdecimal():
            milliseconds = int(argument)
            if milliseconds == DEADLY:
                sys.exit(1)
            if milliseconds == SILENT:
                return None
            self._pass(milliseconds)
        elif word == "next":
            self._pass(self._due)
        elif word == "suspend" and argument.isdecimal():
            due = self._due
            self._pass(int(argument))
            self._due = due
        elif word == "wall" and argument:
            self.wall = datetime.fromisoformat(argument)
        else:
            return f"error {word} {argument}".rstrip()
        return f"ok {self.wall.isoformat(timespec='milliseconds')} {self.tick}"

    def _pass(self, milliseconds):
        self.wall += timedelta(milliseconds=milliseconds)
        self.tick = (self.tick + milliseconds + 2**31) % 2**32 - 2**31
        self._due = PERIOD - (milliseconds - self._due) % PERIOD


def main():
    clock = VirtualClock(sys.argv[1])
    while clock.serve():
        pass


if __name__ == "__main__":
    main()
