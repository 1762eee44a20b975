# SPDX-License-Identifier: GPL-3.0-or-later
"""The old calendar and the names of days, computed a second time without any code of tools/make_old_calendar: with
another ephemeris of the sun (ephem's, VSOP 87) and of the moon (erfa's, ELP 2000), another delta T, and from the
longitudes at each midnight instead of the moments at which an angle is reached."""

import math
import warnings
from datetime import date, timedelta

import ephem
import erfa
import numpy

# The computation includes years for which no leap seconds are announced yet.
warnings.filterwarnings("ignore", message=".*dubious year")

DAY = timedelta(days=1)
ORDINAL_0 = 1721424.5  # the Julian date of midnight before the day with ordinal 0
LEAP_SECONDS_FROM = 1972


def seconds_before_leap_seconds(year):
    """Delta T of the years 1900 to 1972: polynomials of Espenak and Meeus (2006)."""
    if year < 1920:
        t = year - 1900
        return -2.79 + 1.494119 * t - 0.0598939 * t**2 + 0.0061966 * t**3 - 0.000197 * t**4
    if year < 1941:
        t = year - 1920
        return 21.20 + 0.84493 * t - 0.076100 * t**2 + 0.0020936 * t**3
    if year < 1961:
        t = year - 1950
        return 29.07 + 0.407 * t - t**2 / 233 + t**3 / 2547
    t = year - 1975
    return 45.45 + 1.067 * t - t**2 / 260 - t**3 / 718


def delta_t(day):
    if day.year < LEAP_SECONDS_FROM:
        return seconds_before_leap_seconds(day.year + day.timetuple().tm_yday / 365.25)
    return 32.184 + float(erfa.dat(day.year, day.month, day.day, 0.0))


def midnights(days):
    """The moments at which these days begin in Japan, as Julian dates in Terrestrial Time."""
    return [day.toordinal() + ORDINAL_0 - 9 / 24 + delta_t(day) / 86400 for day in days]


def sun_longitudes(moments):
    sun = ephem.Sun()
    found = []
    for moment in moments:
        days = moment - 2415020.0
        when = ephem.Date(days - ephem.delta_t(days) / 86400)
        sun.compute(when, epoch=when)
        found.append(math.degrees(ephem.Ecliptic(ephem.Equatorial(sun.g_ra, sun.g_dec, epoch=when)).lon))
    return numpy.array(found) % 360


def moon_longitudes(moments):
    moments = numpy.array(moments)
    place = erfa.moon98(moments - 1.28 / 86400, 0.0)["p"]
    ecliptic = numpy.einsum("nij,nj->ni", erfa.ecm06(moments, 0.0), place)
    nutation = erfa.nut06a(moments, 0.0)[0]
    return numpy.degrees(numpy.arctan2(ecliptic[:, 1], ecliptic[:, 0]) + nutation) % 360


class SecondAlmanac:
    """New moons and longitudes of the sun by day in Japan, from the end of 1898 to the beginning of 2102."""

    def __init__(self):
        first = date(1898, 11, 1)
        self.days = [first + DAY * count for count in range((date(2102, 2, 1) - first).days)]
        moments = midnights(self.days)
        self.sun = sun_longitudes(moments)
        phase = (moon_longitudes(moments) - self.sun) % 360
        self.new_moons = [day for day, now, then in zip(self.days, phase, phase[1:]) if then < now]

    def days_of_longitude(self, longitude):
        """The days on which the sun reaches this longitude, one in each year."""
        beyond = (self.sun - longitude) % 360
        return [day for day, now, then in zip(self.days, beyond, beyond[1:]) if then < now]

    def old_dates(self):
        """Year, month, whether it is a leap month and day of month, from 1900 on; starts from the published 12th month
        of 1 January 1900."""
        mid_terms = {day for longitude in range(0, 360, 30) for day in self.days_of_longitude(longitude)}
        # The new moon on or before each winter solstice. If the following one of these is more than 370 days later,
        # there are thirteen months between them, and one of these has to be a leap month.
        eleventh = [max(day for day in self.new_moons if solstice - 30 * DAY < day <= solstice)
                    for solstice in self.days_of_longitude(270)]
        needs_leap = False
        year, month, leap = 1899, 11, False
        found = {}
        for first, after in zip(self.new_moons, self.new_moons[1:]):
            if first in eleventh[:-1]:
                needs_leap = eleventh[eleventh.index(first) + 1] - first > 370 * DAY
            if first < date(1900, 1, 1):
                continue
            month_days = [first + DAY * count for count in range((after - first).days)]
            leap = needs_leap and mid_terms.isdisjoint(month_days)
            if leap:
                needs_leap = False
            else:
                year, month = (year + 1, 1) if month == 12 else (year, month + 1)
            found |= {day: (year, month, leap, count) for count, day in enumerate(month_days, 1)}
        return found
