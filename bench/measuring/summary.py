# SPDX-License-Identifier: GPL-3.0-or-later
"""Medians of one program, and ratios of two programs that were measured in turn."""

import statistics
from dataclasses import asdict, dataclass


@dataclass(frozen=True)
class Comparison:
    """One quantity of both programs; the values at the same place of the two lists were measured together."""

    name: str
    unit: str
    program: list
    bare: list

    @property
    def ratios(self):
        """Program to bare window, pair by pair, without the pairs in which the bare window has nothing."""
        return [one / other for one, other in zip(self.program, self.bare, strict=True) if other > 0]

    def as_row(self):
        """The texts of a line of the table: name, both medians, and the median ratio with its spread."""
        return [f"{self.name}, {self.unit}", f"{statistics.median(self.program):.1f}",
                f"{statistics.median(self.bare):.1f}", self._ratio_text()]

    def as_record(self):
        """Everything, for a file."""
        return {**asdict(self), "ratios": self.ratios}

    def _ratio_text(self):
        ratios = self.ratios
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
