# SPDX-License-Identifier: GPL-3.0-or-later
"""Medians of programs that were measured together, and their ratios."""

import json
import statistics
from dataclasses import asdict, dataclass

from .errors import MeasuringError


@dataclass(frozen=True)
class Quantity:
    """What is printed of the figures: a field of StartFigures or WindowFigures, and what it is divided by."""

    name: str
    unit: str
    field: str
    divisor: int = 1

    @property
    def title(self):
        """Name and unit."""
        return f"{self.name}, {self.unit}"

    def values(self, figures):
        """Of a list of figures; None where one of them was not measured."""
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
    """One quantity of two programs; the values at the same place of the two lists were measured together."""

    quantity: Quantity
    one: list
    other: list

    @property
    def ratios(self):
        """One to the other, pair by pair, without the pairs in which the other has nothing."""
        return ratios_of(self.one, self.other)

    def as_row(self):
        """The texts of a line of the table: name, both medians, and the median ratio with its spread."""
        return [self.quantity.title, f"{statistics.median(self.one):.1f}", f"{statistics.median(self.other):.1f}",
                ratio_text(self.ratios)]

    def as_record(self):
        """Everything, for a file."""
        return {**asdict(self), "ratios": self.ratios}


def compare(pairs, quantities):
    """One Comparison for each of the quantities that was measured. `pairs`: [(figures, figures)]"""
    sides = list(zip(*pairs, strict=True))
    values = [(quantity, *(quantity.values(side) for side in sides)) for quantity in quantities if sides]
    return [Comparison(*each) for each in values if None not in each]


def ratios_of(one, other):
    """The values of one list divided by those at the same place of another, where that is not 0."""
    return [first / second for first, second in zip(one, other, strict=True) if second > 0]


def ratio_text(ratios):
    """The median, with the smallest and the largest in brackets."""
    if not ratios:
        return "-"
    middle = f"{statistics.median(ratios):.2f}"
    return middle if len(ratios) == 1 else f"{middle}  ({min(ratios):.2f} to {max(ratios):.2f})"


def table(header, rows):
    """The rows as lines of text in columns, flush right but for the first and the last one."""
    widths = [max(len(row[column]) for row in [header, *rows]) for column in range(len(header))]

    def line(row):
        middle = [text.rjust(width) for text, width in zip(row[1:-1], widths[1:-1], strict=True)]
        return "   ".join([row[0].ljust(widths[0]), *middle, row[-1]])

    return "\n".join(map(line, [header, *rows]))


def medians(records):
    """The median of each number in a list of flat records; of anything else, what the first record says."""
    numbers = [name for name, value in records[0].items() if isinstance(value, int | float)]
    middles = {name: statistics.median(record[name] for record in records) for name in numbers}
    return rounded({**records[0], **middles})


def rounded(record):
    """A flat record with its fractions cut to what a person reads."""
    return {name: round(value, 2) if isinstance(value, float) else value for name, value in record.items()}


def write_records(path, records):
    """Writes records to a file for other programs."""
    try:
        path.write_text(json.dumps(records, ensure_ascii=False, indent=2) + "\n", encoding="utf-8")
    except OSError as error:
        raise MeasuringError(f"cannot write {path}: {error.strerror}") from error
