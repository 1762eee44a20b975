# SPDX-License-Identifier: GPL-3.0-or-later
"""Small programs that the driver is tried out on, so that its tests need no Tickwell."""
