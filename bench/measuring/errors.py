# SPDX-License-Identifier: GPL-3.0-or-later
"""The one error that ends a measurement."""


class MeasuringError(Exception):
    """Something without which there is nothing to measure failed; its text says what, for the user."""
