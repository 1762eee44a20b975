#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""make_old_calendar.py FILE: writes src/core/old_calendar_table.cpp, the months of the old calendar and the days of the
sun's longitudes from 1900 to 2100. With --near-midnight SECONDS instead of FILE, it lists the moments that are that
close to midnight in Japan, where a few seconds decide the day. Needs the packages python3-ephem and python3-erfa."""

import argparse
import sys
from datetime import date

from old_months import old_months
from sky import FIRST_ORDINAL, day_in_japan, new_moons, seconds_from_midnight, solar_moment

FIRST_YEAR, LAST_YEAR = 1900, 2100
TABLE_YEARS = range(FIRST_YEAR, LAST_YEAR + 1)
OLD_YEARS = range(FIRST_YEAR - 1, LAST_YEAR + 1)  # the first days of 1900 belong to the old year 1899

# The order of src/core/solar_terms.cpp: the 24 terms from the first of January on, then those between them.
TERMS = [(285 + 15 * index) % 360 for index in range(24)]
LONGITUDES = TERMS + [297, 27, 80, 100, 117, 207]

NEW_YEARS_DAY_FROM = (1, 20)  # no old year begins before 21 January

HEAD = """// SPDX-License-Identifier: GPL-3.0-or-later
// Written by tools/make_old_calendar/make_old_calendar.py; not to be edited.
#include "core/old_calendar_table.h"

namespace tickwell {

// clang-format off
"""
FOOT = """// clang-format on

}  // namespace tickwell
"""


class Almanac:
    """The moments from which the table is computed."""

    def __init__(self):
        years = range(OLD_YEARS[0] - 1, LAST_YEAR + 2)
        mid_terms = [longitude for longitude in TERMS if longitude % 30 == 0]
        self.solar = {(year, longitude): solar_moment(year, longitude)
                      for year in years for longitude in (LONGITUDES if year in TABLE_YEARS else mid_terms)}
        self.new_moons = new_moons(date(years[0], 11, 1).toordinal() + FIRST_ORDINAL,
                                   date(years[-1], 12, 31).toordinal() + FIRST_ORDINAL)
        days = {key: day_in_japan(moment) for key, moment in self.solar.items()}
        self.months = old_months([day_in_japan(moment) for moment in self.new_moons],
                                 sorted(day for (_, longitude), day in days.items() if longitude in mid_terms),
                                 [days[year, 270] for year in years])
        self.solar_days = {key: day for key, day in days.items() if key[0] in TABLE_YEARS}


def packed_old_year(months):
    """One old year packed into a word, see src/core/old_calendar_table.h."""
    new_years_day = months[0].first_day
    assert (months[0].number, months[0].is_leap) == (1, False) and len(months) in (12, 13)
    days = (new_years_day - new_years_day.replace(month=NEW_YEARS_DAY_FROM[0], day=NEW_YEARS_DAY_FROM[1])).days
    assert 0 < days < 32 and all(month.length in (29, 30) for month in months)
    leap = sum(month.number for month in months if month.is_leap)
    return days | leap << 5 | sum((month.length - 29) << 9 + index for index, month in enumerate(months))


def earliest(days, longitude):
    """Month and day of month of the earliest day on which the sun reaches this longitude."""
    return min((day.month, day.day) for (_, other), day in days.items() if other == longitude)


def packed_solar_days(days, year):
    """One calendar year packed into a word, see src/core/old_calendar_table.h."""
    word = 0
    for index, longitude in enumerate(LONGITUDES):
        day = days[year, longitude]
        later = (day - date(year, *earliest(days, longitude))).days
        assert 0 <= later < 4
        word |= later << 2 * index
    return word


def array(declaration, entries, in_a_line):
    lines = [f"const {declaration}{{{{"]
    for at in range(0, len(entries), in_a_line):
        lines.append("    " + " ".join(entry + "," for entry in entries[at:at + in_a_line]))
    return "\n".join(lines) + "\n}};\n"


def table():
    """The text of the C++ file."""
    almanac = Almanac()
    days = almanac.solar_days
    years = [packed_old_year([month for month in almanac.months if month.year == year]) for year in OLD_YEARS]
    first = [earliest(days, longitude) for longitude in LONGITUDES]
    solar = [packed_solar_days(days, year) for year in TABLE_YEARS]
    return "\n".join([
        HEAD + array(f"std::array<quint32, {len(years)}> kOldYears", [f"0x{word:06X}" for word in years], 10),
        array(f"std::array<DayOfYear, {len(first)}> kEarliestSolarDays",
              [f"{{{month}, {day}}}" for month, day in first], 10),
        array(f"std::array<quint64, {len(solar)}> kSolarDays", [f"0x{word:015X}" for word in solar], 5) + FOOT])


def list_near_midnight(limit):
    almanac = Almanac()
    events = [(moment, f"{longitude} degrees") for (_, longitude), moment in almanac.solar.items()]
    events += [(moment, "new moon") for moment in almanac.new_moons]
    for moment, name in sorted(events):
        seconds = seconds_from_midnight(moment)
        if abs(seconds) <= limit:
            print(f"{day_in_japan(moment)} {name}: {seconds:+.0f} s from midnight")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("file", nargs="?")
    parser.add_argument("--near-midnight", type=float, metavar="SECONDS")
    options = parser.parse_args()
    if (options.file is None) == (options.near_midnight is None):
        parser.error("either FILE or --near-midnight is needed")
    if options.near_midnight is not None:
        list_near_midnight(options.near_midnight)
        return 0
    with open(options.file, "w", encoding="utf-8") as file:
        file.write(table())
    return 0


if __name__ == "__main__":
    sys.exit(main())
