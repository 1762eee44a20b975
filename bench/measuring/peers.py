# SPDX-License-Identifier: GPL-3.0-or-later
"""Other programs that show the time, with settings that make each do the same as Tickwell.

They are Debian packages of the same names; xclock is in x11-apps, conky in conky-std, the panels' clocks in
xfce4-datetime-plugin and lxqt-panel. Programs that are not installed are skipped.
"""

import shutil
from pathlib import Path

from .repetition import Subject

_CONKY = """conky.config = {
    own_window = true, own_window_type = 'normal', own_window_hints = 'undecorated,above,sticky,skip_taskbar',
    double_buffer = true, use_xft = true, font = 'sans:pixelsize=14', update_interval = 1,
    minimum_width = 160, minimum_height = 40, alignment = 'top_left',
}
conky.text = [[
${color white}${time %Y-%m-%d}
${color green}${time %H:%M:%S}]]
"""

_TINT2 = """panel_items = C
panel_size = 200 40
panel_position = top left horizontal
time1_format = %H:%M:%S
time2_format = %Y-%m-%d
time1_font = sans 10
time2_font = sans 10
clock_font_color = #ffffff 100
"""

_XFCE_PANEL = """<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="length" type="uint" value="20"/>
      <property name="size" type="uint" value="40"/>
      <property name="plugin-ids" type="array"><value type="int" value="1"/></property>
    </property>
  </property>
  <property name="plugins" type="empty"><property name="plugin-1" type="string" value="datetime"/></property>
</channel>
"""

_XFCE_CLOCK = """layout=0
date_font=Sans 10
time_font=Sans 10
date_format=%Y-%m-%d
time_format=%H:%M:%S
"""

# The default colours come from a theme that is not installed: black on black.
_LXQT_PANEL = """panels=panel1

[panel1]
plugins=worldclock
position=Top
desktop=0
width=20
font-color=#ffffff
background-color=#202020

[worldclock]
type=worldclock
alignment=Left
formatType=custom
customFormat=HH:mm:ss
"""


def _writes(place, text):
    """Returns a function that writes one settings file into a home."""

    def furnish(home):
        path = Path(home) / place
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    return furnish


def _writes_all(*furnishings):
    def furnish(home):
        for each in furnishings:
            each(home)

    return furnish


def _subject(label, command, *furnishings, **others):
    return Subject(label, lambda _: command, _writes_all(*furnishings), **others)


def clocks():
    """The installed programs that show date or time and refresh it every second."""
    return _installed(
        _subject("conky", ["conky", "--quiet"], _writes(".config/conky/conky.conf", _CONKY)),
        _subject("xclock", ["xclock", "-digital", "-update", "1"]),
        _subject("tint2", ["tint2"], _writes(".config/tint2/tint2rc", _TINT2)),
        _subject("lxqt-panel worldclock", ["lxqt-panel"], _writes(".config/lxqt/panel.conf", _LXQT_PANEL)),
        _subject("xfce4-panel datetime", ["xfce4-panel", "--disable-wm-check"],
                 _writes(".config/xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml", _XFCE_PANEL),
                 _writes(".config/xfce4/panel/datetime-1.rc", _XFCE_CLOCK)))


def windows_at_rest():
    """The installed programs that show no changing time."""
    return _installed(_subject("GNOME Clocks", ["gnome-clocks"], smallest=(200, 100)))


def stopwatches():
    """The installed programs with a stopwatch, which is running."""
    return _installed(_subject("Kronometer", ["kronometer"], hook="xdotool key space", hook_at=8.0,
                               smallest=(200, 100)))


def _installed(*subjects):
    return [subject for subject in subjects if shutil.which(subject.command_in(None)[0])]
