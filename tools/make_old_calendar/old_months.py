# SPDX-License-Identifier: GPL-3.0-or-later
"""The rule by which the months of the old calendar are numbered."""

from bisect import bisect_left, bisect_right
from collections import namedtuple

# `year`: the year in which the first month of the old year begins.
OldMonth = namedtuple("OldMonth", "first_day length year number is_leap")

SOLSTICE_MONTH = 11


def old_months(first_days, mid_terms, solstices):
    """The OldMonths from the month of the first of these winter solstices to that of the last.

    All three are days in Japan in order: the new moons, the days on which the sun reaches a multiple of 30 degrees, and
    those of them on which it reaches 270.

    The month of the winter solstice is the eleventh. If thirteen months begin from one such month to the next, the first
    of them without a mid-term is a leap month: it has the number of the month before. The others count on. In 2033, when
    two other rules for the leap month exclude each other, this gives a leap month after the eleventh, as the association
    of Japan's calendar makers recommended in 2015."""
    months = []
    for solstice, next_solstice in zip(solstices, solstices[1:]):
        begin = bisect_right(first_days, solstice) - 1
        end = bisect_right(first_days, next_solstice) - 1
        leap = leap_month(first_days, mid_terms, begin, end)
        number = SOLSTICE_MONTH - 1
        for index in range(begin, end):
            if index != leap:
                number = number % 12 + 1
            year = solstice.year if number >= SOLSTICE_MONTH else next_solstice.year
            length = (first_days[index + 1] - first_days[index]).days
            months.append(OldMonth(first_days[index], length, year, number, index == leap))
    return months


def leap_month(first_days, mid_terms, begin, end):
    """The index of the leap month among the months `begin` to `end` - 1, or None if these are only twelve."""
    if end - begin == 12:
        return None
    assert end - begin == 13, f"{end - begin} months from {first_days[begin]}"
    return next(index for index in range(begin, end)
                if bisect_left(mid_terms, first_days[index]) == bisect_left(mid_terms, first_days[index + 1]))
