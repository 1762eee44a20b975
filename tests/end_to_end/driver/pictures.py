# SPDX-License-Identifier: GPL-3.0-or-later
"""Screenshots and their colours."""

from PIL import ImageGrab


def grab(display, area=None):
    """The screen, or the area (x, y, width, height) of it, as an RGB image."""
    picture = ImageGrab.grab(xdisplay=display).convert("RGB")
    if area is None:
        return picture
    x, y, width, height = area
    return picture.crop((x, y, x + width, y + height))


def colours(picture, most=6):
    """The most frequent colours as (count, (red, green, blue)), most frequent first."""
    return sorted(picture.getcolors(picture.width * picture.height), reverse=True)[:most]
