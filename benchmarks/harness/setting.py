"""What every measurement is told."""

import pathlib
import sys
from dataclasses import dataclass

ROOT = pathlib.Path(__file__).parents[2]


@dataclass(frozen=True)
class Setting:
    """Of one build that is measured."""

    programs: pathlib.Path  # of the build that is measured
    tools: pathlib.Path     # of this build: the bare window, the services, the stopwatch
    times: int = 9          # how often each thing is measured
    neighbours: bool = False


def tell(*words):
    print(*words, file=sys.stderr, flush=True)
