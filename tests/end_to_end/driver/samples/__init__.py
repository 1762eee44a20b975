# SPDX-License-Identifier: GPL-3.0-or-later
"""Small programs for testing the driver without Tickwell."""
