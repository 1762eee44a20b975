# SPDX-License-Identifier: GPL-3.0-or-later
"""Medians of programs that were measured together, and their ratios."""

import json
import statistics
from dataclasses import asdict, dataclass

from .errors import MeasuringError


@dataclass(frozen=True)
class Quantity:
    """A printed quantity: a field of StartFigures or WindowFigures, and the divisor for its unit."""

    name: str
    unit: str
    field: str
    divisor: int = 1

    @property
    def title(self):
        """Name and unit."""
        return f"{self.name}, {self.unit}"

    def values(self, figures):
        """The values in a list of figures; None if one of them was not measured."""
        values = [getattr(each, self.field) for each in figures]
        return None if None in values else [value / self.divisor for value in values]


FIRST_WINDOW = Quantity("start to first window", "ms", "mapped_ms")
FIRST_PAINT = Quantity("start to first painted frame", "ms", "painted_ms")
CPU = Quantity("CPU time", "ms a minute", "cpu_ms_per_min")
SWITCHES = Quantity("voluntary switches", "a second", "voluntary_per_s")
RSS = Quantity("RSS", "MiB", "rss_kib", 1024)
PSS = Quantity("PSS", "MiB", "pss_kib", 1024)
ANONYMOUS = Quantity("anonymous memory", "MiB", "anonymous_kib", 1024)
PEAK = Quantity("peak memory (VmHWM)", "MiB", "peak_rss_kib", 1024)
SERVER_CPU = Quantity("CPU time of the X server", "ms a minute", "server_cpu_ms_per_min")
REPAINTS = Quantity("repaints", "a second", "repaints_per_s")


@dataclass(frozen=True)
class Comparison:
    """One quantity of two programs; values at the same position of the two lists were measured together."""

    quantity: Quantity
    one: list
    other: list

    @property
    def ratios(self):
        """The ratio of each pair, except pairs whose second value is 0."""
        return ratios_of(self.one, self.other)

    def as_row(self):
        """The cells of a table row: name, both medians, and the median ratio with its range."""
        return [self.quantity.title, f"{statistics.median(self.one):.1f}", f"{statistics.median(self.other):.1f}",
                ratio_text(self.ratios)]

    def as_record(self):
        """All values, for a file."""
        return {**asdict(self), "ratios": self.ratios}


def compare(pairs, quantities):
    """A Comparison for each quantity that was measured. `pairs`: [(figures, figures)]"""
    sides = list(zip(*pairs, strict=True))
    values = [(quantity, *(quantity.values(side) for side in sides)) for quantity in quantities if sides]
    return [Comparison(*each) for each in values if None not in each]


def ratios_of(one, other):
    """The values of one list divided by those at the same position of another, except for those that are 0."""
    return [first / second for first, second in zip(one, other, strict=True) if second > 0]


def ratio_text(ratios):
    """The median, with minimum and maximum in brackets."""
    if not ratios:
        return "-"
    middle = f"{statistics.median(ratios):.2f}"
    return middle if len(ratios) == 1 else f"{middle}  ({min(ratios):.2f} to {max(ratios):.2f})"


def table(header, rows):
    """The rows as lines of text in columns; all right-aligned except the first and the last one."""
    widths = [max(len(row[column]) for row in [header, *rows]) for column in range(len(header))]

    def line(row):
        middle = [text.rjust(width) for text, width in zip(row[1:-1], widths[1:-1], strict=True)]
        return "   ".join([row[0].ljust(widths[0]), *middle, row[-1]])

    return "\n".join(map(line, [header, *rows]))


def medians(records):
    """The median of each number in a list of flat records; other values are those of the first record."""
    numbers = [name for name, value in records[0].items() if isinstance(value, int | float)]
    middles = {name: statistics.median(record[name] for record in records) for name in numbers}
    return rounded({**records[0], **middles})


def rounded(record):
    """A flat record with its fractions rounded to two digits."""
    return {name: round(value, 2) if isinstance(value, float) else value for name, value in record.items()}


def write_records(path, records):
    """Writes records to a JSON file."""
    try:
        path.write_text(json.dumps(records, ensure_ascii=False, indent=2) + "\n", encoding="utf-8")
    except OSError as error:
        raise MeasuringError(f"cannot write {path}: {error.strerror}") from error
