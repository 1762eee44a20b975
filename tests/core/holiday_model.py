#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Computes Japan's days off by law from 1948 to 2100, as a second opinion on the program's own calculation.

    holiday_model.py                  writes the table to the standard output
    holiday_model.py --check FILE     exits with 1 if FILE is not exactly that table

The table has a line per day off, in order of date: YYYY-MM-DD, name and kind, separated by tabs. The kinds are

    holiday      a national holiday
    one-day      a day off by an act of its own, for one ceremony
    substitute   the day off in place of a holiday that falls on a Sunday
    between      the day off between two holidays

Names are spelled as in the list of the Cabinet Office, but without its notes in brackets; days that the list calls
only 休日 (substitutes, days between and the two ceremonies of 2019) have their own names.

The model is the Act on National Holidays (Act No. 178 of 1948) written as rows of data: a holiday that was moved or
renamed has one row for each period. It shares neither code nor data with the program.
"""

import argparse
import sys
from datetime import date, timedelta
from itertools import zip_longest
from pathlib import Path

FIRST_YEAR = 1948
LAST_YEAR = 2100

ENACTED = "1948-07-20"
ALWAYS = "9999-12-31"
ONE_DAY = timedelta(days=1)
MONDAY, SUNDAY = 0, 6

# The name, the first and the last date on which the row is in force, and the rule for the date in a year:
# MM-DD, MM-monN for the Nth Monday of a month, or MM-equinox.
HOLIDAYS = (
    ("元日", ENACTED, ALWAYS, "01-01"),
    ("成人の日", ENACTED, "1999-12-31", "01-15"),
    ("成人の日", "2000-01-01", ALWAYS, "01-mon2"),
    ("建国記念の日", "1966-12-09", ALWAYS, "02-11"),  # in force with the decree that chose the date
    ("天皇誕生日", ENACTED, "1989-02-16", "04-29"),
    ("天皇誕生日", "1989-02-17", "2019-04-30", "12-23"),
    ("天皇誕生日", "2019-05-01", ALWAYS, "02-23"),
    ("春分の日", ENACTED, ALWAYS, "03-equinox"),
    ("みどりの日", "1989-02-17", "2006-12-31", "04-29"),
    ("昭和の日", "2007-01-01", ALWAYS, "04-29"),
    ("憲法記念日", ENACTED, ALWAYS, "05-03"),
    ("みどりの日", "2007-01-01", ALWAYS, "05-04"),
    ("こどもの日", ENACTED, ALWAYS, "05-05"),
    ("海の日", "1996-01-01", "2002-12-31", "07-20"),
    ("海の日", "2003-01-01", "2019-12-31", "07-mon3"),
    ("海の日", "2020-01-01", "2020-12-31", "07-23"),  # moved, like two others, for the Tokyo Olympics
    ("海の日", "2021-01-01", "2021-12-31", "07-22"),
    ("海の日", "2022-01-01", ALWAYS, "07-mon3"),
    ("山の日", "2016-01-01", "2019-12-31", "08-11"),
    ("山の日", "2020-01-01", "2020-12-31", "08-10"),
    ("山の日", "2021-01-01", "2021-12-31", "08-08"),
    ("山の日", "2022-01-01", ALWAYS, "08-11"),
    ("敬老の日", "1966-06-25", "2002-12-31", "09-15"),
    ("敬老の日", "2003-01-01", ALWAYS, "09-mon3"),
    ("秋分の日", ENACTED, ALWAYS, "09-equinox"),
    ("体育の日", "1966-06-25", "1999-12-31", "10-10"),
    ("体育の日", "2000-01-01", "2019-12-31", "10-mon2"),
    ("スポーツの日", "2020-01-01", "2020-12-31", "07-24"),
    ("スポーツの日", "2021-01-01", "2021-12-31", "07-23"),
    ("スポーツの日", "2022-01-01", ALWAYS, "10-mon2"),
    ("文化の日", ENACTED, ALWAYS, "11-03"),
    ("勤労感謝の日", ENACTED, ALWAYS, "11-23"),
)

# The name, the date, and whether the act lets the day count as a national holiday.
ONE_DAY_ACTS = (
    ("結婚の儀", "1959-04-10", False),
    ("大喪の礼", "1989-02-24", False),
    ("即位礼正殿の儀", "1990-11-12", False),
    ("結婚の儀", "1993-06-09", False),
    ("天皇の即位の日", "2019-05-01", True),
    ("即位礼正殿の儀の行われる日", "2019-10-22", True),
)

SUBSTITUTES_SINCE = date(1973, 4, 12)
BETWEEN_SINCE = date(1985, 12, 27)
REWORDED = date(2007, 1, 1)  # from then on the act words both rules differently

# By month: the first year of each period and the equinox of 1980 extrapolated from it, in millionths of a day of that
# month. The last period makes up for 2100, which is no leap year.
EQUINOXES = {
    3: ((1900, 20_835_700), (1980, 20_843_100), (2100, 21_851_000)),
    9: ((1900, 23_258_800), (1980, 23_248_800), (2100, 24_248_800)),
}
DRIFT_PER_YEAR = 242_194
MILLION = 1_000_000


def equinox(year, month):
    """The day of the month on which the equinox falls, in Japan's time."""
    start = [of_1980 for first, of_1980 in EQUINOXES[month] if first <= year][-1]
    leap_days = (year - 1980) // 4  # rounded down, which is (year - 1983) / 4 rounded towards zero before 1980
    return (start + DRIFT_PER_YEAR * (year - 1980)) // MILLION - leap_days


def nth_monday(year, month, n):
    """The day of the month of its nth Monday."""
    return 1 + (MONDAY - date(year, month, 1).weekday()) % 7 + 7 * (n - 1)


def date_by_rule(year, rule):
    """The date of a row's rule in a year."""
    month_text, day_text = rule.split("-")
    month = int(month_text)
    if day_text == "equinox":
        return date(year, month, equinox(year, month))
    if day_text.startswith("mon"):
        return date(year, month, nth_monday(year, month, int(day_text.removeprefix("mon"))))
    return date(year, month, int(day_text))


def national_holidays():
    """Maps the date of each national holiday to its name."""
    found = {}
    for name, first, last, rule in HOLIDAYS:
        for year in range(FIRST_YEAR, LAST_YEAR + 1):
            day = date_by_rule(year, rule)
            if not first <= day.isoformat() <= last:
                continue
            if day in found:
                raise ValueError(f"{found[day]} and {name} both fall on {day}")
            found[day] = name
    return found


def substitute_days(holidays):
    """The days off in place of the holidays that fall on a Sunday."""
    found = set()
    for sunday in holidays:
        if sunday.weekday() != SUNDAY or sunday < SUBSTITUTES_SINCE:
            continue
        day = sunday + ONE_DAY
        while sunday >= REWORDED and day in holidays:
            day += ONE_DAY
        found.add(day)
    return found - set(holidays)


def days_between(holidays, substitutes):
    """The days off whose neighbours are both holidays."""
    found = set()
    for before in holidays:
        day = before + ONE_DAY
        if day < BETWEEN_SINCE or day in holidays or day + ONE_DAY not in holidays:
            continue
        if day < REWORDED and (day.weekday() == SUNDAY or day in substitutes):
            continue
        found.add(day)
    return found


def table():
    """The complete table as text."""
    named = national_holidays()
    days = {day: (name, "holiday") for day, name in named.items()}
    acts = [(name, date.fromisoformat(day), counts) for name, day, counts in ONE_DAY_ACTS]
    days.update({day: (name, "one-day") for name, day, _ in acts})

    holidays = set(named) | {day for _, day, counts in acts if counts}
    substitutes = substitute_days(holidays)
    between = days_between(holidays, substitutes)
    # setdefault(): a day off for two reasons is listed once, under the first of them.
    for day in substitutes:
        days.setdefault(day, ("振替休日", "substitute"))
    for day in between:
        days.setdefault(day, ("国民の休日", "between"))
    return "".join(f"{day}\t{name}\t{kind}\n" for day, (name, kind) in sorted(days.items()))


def first_difference(expected, found):
    """Describes the first line in which two different tables differ."""
    wanted, read = (text.decode(errors="replace").split("\n") for text in (expected, found))
    lines = enumerate(zip_longest(wanted, read), start=1)
    return next(f"line {number} is {b!r} instead of {a!r}" for number, (a, b) in lines if a != b)


def main():
    """Writes the table, or compares a file with it."""
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--check", metavar="FILE", type=Path, help="compare FILE with the table")
    options = parser.parse_args()
    expected = table().encode()
    if options.check is None:
        sys.stdout.buffer.write(expected)
    elif (found := options.check.read_bytes()) != expected:
        sys.exit(f"{options.check}: {first_difference(expected, found)}")


if __name__ == "__main__":
    main()
