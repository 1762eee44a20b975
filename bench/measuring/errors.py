# SPDX-License-Identifier: GPL-3.0-or-later
"""The error that ends a measurement."""


class MeasuringError(Exception):
    """Something that a measurement needs has failed; the text describes it for the user."""
