# SPDX-License-Identifier: GPL-3.0-or-later
"""When the sun reaches a longitude and when the moon is new, in Terrestrial Time and as days in Japan.

Longitudes are apparent, geocentric and of date: with precession, nutation, aberration and light-time, as an almanac
prints them. The sun is that of erfa: Earth's position to 0.02", IAU 2006 precession, IAU 2000A nutation. The moon is
that of ephem, a fit to JPL's DE404; another theory, erfa's moon98, differs by 3" on average, so a new moon is right to
some seconds.

Japan's time is UTC + 9 hours, and the time between UTC and Terrestrial Time (delta T) is known for the past only. Until
2016 it is taken from ephem's table of observations, then from the extrapolation of Stephenson, Morrison and Hohenkerk
(2016, doi 10.1098/rspa.2016.0404): the length of the day as it developed since 720 BC, integrated from 2016 on. It gives
70 s for 2026 (observed: 69 s), 76 s for 2050 and 94 s for 2100. If no leap second is ever added again, it stays at 69 s;
no day in the table depends on which of the two comes true."""

import math
import warnings
from datetime import date

import ephem
import erfa

TROPICAL_YEAR = 365.2422
SYNODIC_MONTH = 29.530588861
MEAN_NEW_MOON = 2451550.09766  # the mean new moon of January 2000
EPHEM_DAY_0 = 2415020.0  # the Julian date from which ephem counts
JAPAN_FROM_UTC = 9 / 24
LIGHT_TIME_OF_MOON = 1.28  # seconds
FIRST_ORDINAL = 1721425  # the Julian day before 1 January of year 1
TABLE_OF_OBSERVATIONS_ENDS = 2016.0

# The Earth's position is computed for 1900 to 2100; the months around these years are needed too, and stay accurate
# enough.
warnings.filterwarnings("ignore", message=".*epv00.*date outside")


def year_of(jd):
    return 2000 + (jd - 2451545.0) / 365.25


def delta_t(jd):
    """Terrestrial Time minus Universal Time, in seconds."""
    if year_of(jd) < TABLE_OF_OBSERVATIONS_ENDS:
        return ephem.delta_t(jd - EPHEM_DAY_0)
    years = year_of(jd) - 1825
    return -293.6 + 0.00325 * years**2 + 349 * math.cos(0.00419 * years)


def sun_longitude(jd):
    """The sun's longitude in degrees. `jd`: a Julian date in Terrestrial Time."""
    around_sun, around_barycentre = erfa.epv00(jd, 0.0)
    to_sun = -around_sun["p"]
    distance = math.sqrt(to_sun @ to_sun)
    velocity = around_barycentre["v"] * (erfa.DAU / erfa.DAYSEC / erfa.CMPS)
    seen = erfa.ab(to_sun / distance, velocity, distance, math.sqrt(1 - velocity @ velocity))
    x, y, _ = erfa.ecm06(jd, 0.0) @ seen
    nutation, _ = erfa.nut06a(jd, 0.0)
    return math.degrees(math.atan2(y, x) + nutation) % 360


def moon_longitude(jd):
    """The moon's longitude in degrees. `jd`: a Julian date in Terrestrial Time."""
    days = jd - LIGHT_TIME_OF_MOON / 86400 - EPHEM_DAY_0
    moon = ephem.Moon()
    moon.compute(days - ephem.delta_t(days) / 86400)  # ephem adds its own delta T, which differs in the future
    _, nutation = erfa.nut06a(jd, 0.0)
    obliquity = erfa.obl06(jd, 0.0) + nutation
    y = math.sin(moon.g_ra) * math.cos(obliquity) + math.tan(moon.g_dec) * math.sin(obliquity)
    return math.degrees(math.atan2(y, math.cos(moon.g_ra))) % 360


def moment_of(angle, near, degrees_a_day):
    """The moment close to `near` at which the function `angle`, which grows at that rate, is a multiple of 360."""
    moment = near
    for _ in range(50):
        beyond = (angle(moment) + 180) % 360 - 180
        moment -= beyond / degrees_a_day
        if abs(beyond) < 1e-7:
            return moment
    raise ArithmeticError(f"no moment found near {near}")


def solar_moment(year, longitude):
    """When the sun reaches `longitude`, a whole number of degrees, in that calendar year (Terrestrial Time)."""
    day = (longitude - 280) % 360 / 360 * TROPICAL_YEAR  # the sun is at 280 degrees at the new year
    near = date(year, 1, 1).toordinal() + FIRST_ORDINAL + day
    return moment_of(lambda jd: sun_longitude(jd) - longitude, near, 360 / TROPICAL_YEAR)


def new_moons(first, last):
    """All new moons from `first` to `last`, two Julian dates, and the adjacent ones (Terrestrial Time)."""
    lunations = range(math.floor((first - MEAN_NEW_MOON) / SYNODIC_MONTH),
                      math.ceil((last - MEAN_NEW_MOON) / SYNODIC_MONTH) + 1)
    return [moment_of(lambda jd: moon_longitude(jd) - sun_longitude(jd), MEAN_NEW_MOON + SYNODIC_MONTH * lunation,
                      360 / SYNODIC_MONTH) for lunation in lunations]


def in_japan(jd):
    """The same moment as a Julian date in Japan's time that changes at midnight."""
    return jd - delta_t(jd) / 86400 + JAPAN_FROM_UTC + 0.5


def day_in_japan(jd):
    return date.fromordinal(math.floor(in_japan(jd)) - FIRST_ORDINAL)


def seconds_from_midnight(jd):
    """The seconds since the nearest midnight in Japan; below 0 before it."""
    fraction = in_japan(jd) % 1
    return 86400 * (fraction if fraction < 0.5 else fraction - 1)
