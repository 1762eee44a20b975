# SPDX-License-Identifier: GPL-3.0-or-later
"""A plain X window that prints its input events and answers pings: window.py NAME X Y WIDTH HEIGHT RRGGBB

On SIGUSR1 it computes for COMPUTED seconds of CPU time."""

import os
import signal
import sys
import time

from Xlib import X, Xutil
from Xlib.display import Display
from Xlib.protocol.event import ClientMessage

COMPUTED = 0.6


def compute(*_):
    begun = time.thread_time()
    while time.thread_time() - begun < COMPUTED:
        pass


def show(display, name, x, y, width, height, colour):
    screen, atom = display.screen(), display.intern_atom
    window = screen.root.create_window(
        x, y, width, height, 0, screen.root_depth, background_pixel=colour,
        event_mask=X.ButtonPressMask | X.ButtonReleaseMask | X.KeyPressMask | X.ExposureMask)
    window.set_wm_normal_hints(flags=Xutil.USPosition)
    window.set_wm_hints(flags=Xutil.InputHint, input=1)
    window.set_wm_protocols([atom("WM_DELETE_WINDOW")])
    window.change_property(atom("_NET_WM_NAME"), atom("UTF8_STRING"), 8, name.encode())
    window.change_property(atom("_NET_WM_PID"), atom("CARDINAL"), 32, [os.getpid()])
    window.map()


def main():
    signal.signal(signal.SIGUSR1, compute)
    name, *place, colour = sys.argv[1:]
    display = Display()
    show(display, name, *map(int, place), int(colour, 16))
    while True:
        event = display.next_event()
        if event.type == X.Expose:
            print("shown", flush=True)
        elif event.type in (X.ButtonPress, X.ButtonRelease):
            what = "pressed" if event.type == X.ButtonPress else "released"
            print(f"{what} {event.detail} at {event.event_x} {event.event_y}", flush=True)
        elif event.type == X.KeyPress:
            print(f"key {display.keycode_to_keysym(event.detail, event.state & X.ShiftMask)}", flush=True)
        elif event.type == X.ClientMessage and event.data[1][0] == display.intern_atom("_NET_WM_PING"):
            root = display.screen().root
            root.send_event(ClientMessage(window=root, client_type=event.client_type, data=event.data),
                            event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
            display.flush()
        elif event.type == X.ClientMessage:
            print("closed", flush=True)
            return


if __name__ == "__main__":
    main()
