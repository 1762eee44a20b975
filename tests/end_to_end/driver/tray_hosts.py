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
    """A host that embeds icons as X11 windows; returns its program when its panel is shown."""
    return _stands(session, session.spawn(["trayer", "--edge", "bottom", "--align", "right", "--widthtype", "pixel",
                                           "--width", "200", "--height", "32"]))


def start_xfce_panel(session):
    """A host that icons register with over the session bus; returns its program when its panel is shown."""
    folder = session.home / ".config/xfce4/xfconf/xfce-perchannel-xml"
    folder.mkdir(parents=True, exist_ok=True)
    (folder / "xfce4-panel.xml").write_text(PANEL_SETTINGS, encoding="utf-8")
    return _stands(session, session.spawn(["xfce4-panel", "--disable-wm-check"]))


class TrayIcon:
    """The difference that an icon makes in the lower part of the screen, where the hosts have their panels."""

    PANEL = (0, 980, 1280, 44)  # x, y, width, height

    def __init__(self, session):
        """Create it while the panel is shown without the icon."""
        self._session = session
        self._without = session.grab(self.PANEL)

    def place(self):
        """The centre of the icon on the screen, or None if there is none."""
        box = ImageChops.difference(self._without, self._session.grab(self.PANEL)).getbbox()
        if box is None:
            return None
        left, top, right, bottom = box
        return self.PANEL[0] + (left + right) // 2, self.PANEL[1] + (top + bottom) // 2

    def wait(self):
        """Waits until the icon is shown and stays in place; returns its centre."""
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
