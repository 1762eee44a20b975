# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs Tickwell on a private desktop, operates it like a user and reads it like a screen reader.

Runs under Debian's /usr/bin/python3 and needs: python3-gi python3-pil python3-xlib xvfb xdotool dbus at-spi2-core
openbox. Tests start from `case.TickwellCase` and `tickwell.start_tickwell`.
"""
