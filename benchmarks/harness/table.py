"""The table that ./bench prints, a row for a figure."""

import statistics
from dataclasses import dataclass


@dataclass
class Sample:
    """What was measured of one thing: the middle, and half of how far the middle half lies apart."""

    median: float
    spread: float | None = None  # none: measured once, or always the same by its nature
    unit: str = ""

    @classmethod
    def of(cls, values, unit=""):
        if len(values) < 2:
            return cls(*values, unit=unit)
        low, middle, high = statistics.quantiles(values, n=4, method="inclusive")
        return cls(middle, (high - low) / 2, unit)

    def __str__(self):
        text = f"{number(self.median)} {self.unit}".strip()
        return text if self.spread is None else f"{text} ± {number(self.spread)}"


@dataclass
class Figure:
    """A row: what Orvane takes, and what the thing beside it takes in the same run."""

    name: str
    ours: Sample
    by: str = ""  # what stands beside it
    beside: Sample | None = None
    aim: str = ""

    def ratio(self):
        return number(self.ours.median / self.beside.median) if self.beside and self.beside.median \
            else ""


def number(value):
    digits = 0 if abs(value) >= 100 or value == round(value) else 3
    return f"{value:.0f}" if digits == 0 else f"{value:.{digits}g}"


def print_table(rows, before):
    """`before`: the rows of an earlier build, which get a column; none: no such column. Rows that
    are texts stand below the table, those of the earlier build nowhere."""
    figures = [row for row in rows if isinstance(row, Figure)]
    earlier = {(row.name, row.by): row.ours for row in before or [] if isinstance(row, Figure)}
    head = ["figure", *(["before"] if earlier else []), "Orvane", "beside it", "its figure",
            "ratio", "aim"]
    print("|", " | ".join(head), "|")
    print("|" + "|".join("---" if name in ("figure", "beside it") else "--:" for name in head) + "|")
    for figure in figures:
        cells = [figure.name, *([earlier.get((figure.name, figure.by), "")] if earlier else []),
                 figure.ours, figure.by, figure.beside or "", figure.ratio(), figure.aim]
        print("|", " | ".join(map(str, cells)), "|", flush=True)
    for text in (row for row in rows if not isinstance(row, Figure)):
        print(f"\n{text}")
