# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs Tickwell on a desktop of its own, works it as a user does and reads it as a screen reader does.

Runs under Debian's /usr/bin/python3 and needs: python3-gi python3-pil python3-xlib xvfb xdotool dbus
at-spi2-core openbox. A test begins at `case.TickwellCase` and `tickwell.start_tickwell`.
"""
