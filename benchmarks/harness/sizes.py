"""How much there is of the program, and whose libraries it brings along."""

import collections
import re

from process_costs import BARE, Process, subject, with_figures
from processes import output_of
from setting import tell
from table import Figure, Sample


def size(setting):
    tell("measuring size")
    executable, bare = setting.programs / "orvane", setting.tools / "bare_window"
    yield Figure("executable, stripped", megabytes(executable), BARE, megabytes(bare))
    for package in setting.programs.glob("orvane_*.deb"):
        yield Figure("package", megabytes(package))
    yield Figure("libraries by ldd", linked(executable), BARE, linked(bare))
    ours, others = loaded(setting)
    yield Figure("libraries loaded, plugins among them", Sample(len(ours)), BARE,
                 Sample(len(others)))
    yield excess(executable, ours, ours - others)


def megabytes(file):
    return Sample(file.stat().st_size / 1e6, unit="MB")


def linked(executable):
    return Sample(output_of("ldd", executable).count("=>"))


def loaded(setting):
    """The libraries of the program and of a bare window while they run."""
    with subject(setting) as program, with_figures(program) as ours, \
            Process(program.bare) as other:
        other.shown()
        return ours.libraries(), other.libraries()


def excess(executable, ours, more):
    """The text that says which libraries a bare window does without, and who asks for them."""
    needs = {name_of(path): dynamic(path, "NEEDED") for path in ours}
    needs["Orvane"] = dynamic(executable, "NEEDED")
    found = collections.defaultdict(list)
    for name in sorted(map(name_of, more)):
        askers = sorted(asker for asker, libraries in needs.items() if name in libraries)
        found["Orvane" if "Orvane" in askers else ", ".join(askers)].append(name)
    lines = [f"- {asker or 'plugins, and what is opened by name'}: {', '.join(names)}"
             for asker, names in sorted(found.items())]
    return "\n".join(["Libraries that a bare window does without, by who asks for them:", "", *lines])


def name_of(library):
    """By which others ask for it."""
    return (dynamic(library, "SONAME") or [library.name])[0]


def dynamic(file, kind):
    return re.findall(rf"^ +{kind} +(\S+)", output_of("objdump", "-p", file), re.M)
