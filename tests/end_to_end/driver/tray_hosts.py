# SPDX-License-Identifier: GPL-3.0-or-later
"""Real notification areas, and the icon in them."""

from PIL import ImageChops

from driver.waiting import steady, wait_for

PANEL_SETTINGS = """<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=8;x=640;y=1000"/>
      <property name="length" type="uint" value="100"/>
      <property name="size" type="uint" value="32"/>
      <property name="plugin-ids" type="array"><value type="int" value="1"/></property>
    </property>
  </property>
  <property name="plugins" type="empty"><property name="plugin-1" type="string" value="systray"/></property>
</channel>
"""


def start_trayer(session):
    """A host that takes icons in as windows of X11; returns its program once its panel stands."""
    return _stands(session, session.spawn(["trayer", "--edge", "bottom", "--align", "right", "--widthtype", "pixel",
                                           "--width", "200", "--height", "32"]))


def start_xfce_panel(session):
    """A host that is told of icons over the session bus; returns its program once its panel stands."""
    folder = session.home / ".config/xfce4/xfconf/xfce-perchannel-xml"
    folder.mkdir(parents=True, exist_ok=True)
    (folder / "xfce4-panel.xml").write_text(PANEL_SETTINGS, encoding="utf-8")
    return _stands(session, session.spawn(["xfce4-panel", "--disable-wm-check"]))


class TrayIcon:
    """What an icon changes in the lower part of the screen, where the hosts have their panels."""

    PANEL = (0, 980, 1280, 44)  # x, y, width, height

    def __init__(self, session):
        """To be made while the panel stands without the icon."""
        self._session = session
        self._without = session.grab(self.PANEL)

    def place(self):
        """The middle of the icon on the screen, or None while there is none."""
        box = ImageChops.difference(self._without, self._session.grab(self.PANEL)).getbbox()
        if box is None:
            return None
        left, top, right, bottom = box
        return self.PANEL[0] + (left + right) // 2, self.PANEL[1] + (top + bottom) // 2

    def wait(self):
        """Its middle, once it has come and stays where it is."""
        return steady(self.place, "the icon in the panel")

    def wait_gone(self):
        wait_for(lambda: self.place() is None, "the end of the icon")


def _stands(session, host):
    def at_rest():
        host.check_running()
        return session.windows.find(pid=host.pid)
    wait_for(at_rest, f"the panel of {host.command[0]}")
    steady(lambda: session.grab(TrayIcon.PANEL).tobytes(), "the panel painted")
    return host
