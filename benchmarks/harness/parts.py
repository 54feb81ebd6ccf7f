"""Parts of the program without its process: documents to records, new figures to the screen, and
what ten thousand cycles leave behind."""

import collections
import json
import math
import pathlib
import resource
import statistics
import subprocess
import tempfile

from setting import tell
from table import Figure, Sample

# What others of the same document stand beside, and what we aim for there.
MEASURES = {"libraryTree": ("nlohmann-json's tree", "0.5 of it"),
            "simdjson": ("simdjson's tree", ""),
            "jq": ("jq doing the same", "0.1 of it"),
            "repaint": ("a repaint without new data", "16.7 ms")}
TO_RECORDS = {"profile": "profile", "workers": "10,000 workers", "history": "20 years of history",
              "stored_history": "20 years of history, stored",
              "transactions": "10,000 transactions"}
TO_SCREEN = {"table": "history as a table", "chart": "history as a chart"}
# The same reductions as ours: what to keep of the files' documents, and in which order.
FOR_JQ = {
    "profile": (["profile"], ".btc | {hash_rate_60m, shares_24h, today_reward, current_balance}"),
    "workers": (["workers"], ".btc.workers | to_entries | map({name: .key} + (.value | {state,"
                " last_share, hash_rate_5m, hash_rate_60m, hash_rate_24h}))"
                " | sort_by(-.hash_rate_5m, .name)"),
    "history": (["rewards", "hash_rates"],
                "[inputs] | INDEX(.[1].btc[]; .date) as $rates | .[0].btc.daily_rewards"
                " | map(.total_reward as $reward | $rates[.date | tostring]"
                " | {date, hash_rate_24h, total_shares, $reward}) | sort_by(-.date)"),
    "transactions": (["transactions"],
                     'map({txid, status, sats: (.vout | map(select(.scriptpubkey_address =='
                     ' "bc1qar0srrr7xfkvy5l643lydnw9re59gtzzwf5mdq").value) | add)})'),
}


class Runs:
    """Times in milliseconds and counters, by who did it and with what."""

    def __init__(self):
        self.times = collections.defaultdict(list)
        self.kilobytes = {}

    def add_benchmarks(self, setting, program, only="."):
        """Google Benchmark writes nothing when nothing matches."""
        tell("measuring", program)
        with tempfile.NamedTemporaryFile() as out:
            subprocess.run([setting.programs / program, f"--benchmark_filter={only}",
                            f"--benchmark_repetitions={setting.times}", "--benchmark_min_time=0.05",
                            "--benchmark_enable_random_interleaving=true",
                            f"--benchmark_out={out.name}"],
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=True)
            text = pathlib.Path(out.name).read_text()
        for run in json.loads(text)["benchmarks"] if text else []:
            if run.get("error_occurred"):
                raise RuntimeError(f"{run['name']}: {run['error_message']}")
            if run["run_type"] == "iteration":
                who, what = run["name"].split("/")[:2]
                in_milliseconds = {"ms": 1, "us": 1e-3, "ns": 1e-6}[run["time_unit"]]
                self.times[who, what].append(run["cpu_time"] * in_milliseconds)
                self.kilobytes[what] = run.get("kB")
        return self

    def add_jq(self, setting):
        tell("measuring jq")
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run([setting.tools / "write_documents", folder], check=True)
            for what, (files, reduction) in FOR_JQ.items():
                arguments = ["-n"] if len(files) > 1 else []
                paths = [f"{folder}/{name}.json" for name in files]
                for _ in range(setting.times):
                    self.times["jq", what].append(
                        processor_time("jq", *arguments, reduction, *paths))
        return self

    def figures(self, who, name, names):
        """A figure for each of `names` and each measure of it."""
        for what, words in names.items():
            for measure, (by, aim) in MEASURES.items():
                if (who, what) in self.times and (measure, what) in self.times:
                    yield Figure(f"{name}: {words}", Sample.of(self.times[who, what], "ms"), by,
                                 Sample.of(self.times[measure, what], "ms"), aim)


def processor_time(*command):
    """In milliseconds."""
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL)
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return 1000 * (after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime)


def records(setting):
    runs = Runs().add_benchmarks(setting, "pool_bench", "/(profile|workers|.*history)$")
    runs.add_benchmarks(setting, "address_bench").add_jq(setting)
    yield from runs.figures("decodeAndMap", "body to records", TO_RECORDS)


def screen(setting):
    runs = Runs().add_benchmarks(setting, "views_bench", "^(update|repaint)/")
    yield from runs.figures("update", "announcement to repainted window", TO_SCREEN)


def scaling(setting):
    """How time and memory grow with the number of workers: the exponent of the last step."""
    runs = Runs().add_benchmarks(setting, "pool_bench", "^many")
    sizes = sorted(int(what) for who, what in runs.times if who == "many")
    for size in sizes:
        tell(f"  {size} workers: {Sample.of(runs.times['many', str(size)], 'ms')},"
             f" {runs.kilobytes[str(size)]:.0f} kB")
    less, most = sizes[-2:]

    def exponent(low, high):
        return math.log(high / low) / math.log(most / less)

    name = f"{less:,} to {most:,} workers, exponent of the"
    straight, aim = Sample(1), f"{exponent(less * math.log(less), most * math.log(most)):.2f}: n log n"
    times = zip(*(runs.times["many", str(size)] for size in (less, most)), strict=True)
    yield Figure(f"{name} time", Sample.of([exponent(*pair) for pair in times]), "a straight line",
                 straight, aim)
    held = exponent(*(runs.kilobytes[str(size)] for size in (less, most)))
    yield Figure(f"{name} memory", Sample(held), "a straight line", straight, aim)


def growth(setting):
    """The slopes of the lines through what it holds, each over half of the cycles: a cache that
    fills makes the second one flatter, a leak does not."""
    tell("measuring growth")
    lines = subprocess.run([setting.programs / "growth"], stdout=subprocess.PIPE, text=True,
                           check=True).stdout.splitlines()
    held = list(zip(*(map(int, line.split()) for line in lines), strict=True))
    half = len(lines) // 2
    halves = {"first 5,000 cycles but 500": slice(half // 10, half),
              "next 5,000 cycles": slice(half, None)}
    for name, values in zip(("heap in use", "private memory"), held, strict=True):
        for when, part in halves.items():
            slope, error = line_through(values[part])
            count = len(values[part])
            yield Figure(f"growth of the {name}, {when}", Sample(slope * count, error * count, "kB"),
                         "a flat line", Sample(0, unit="kB"), "0 within noise")


def line_through(values):
    """The slope by least squares, with twice its standard error."""
    places = range(len(values))
    slope, start = statistics.linear_regression(places, values)
    rest = sum((value - start - slope * place) ** 2 for place, value in zip(places, values))
    wide = sum((place - statistics.mean(places)) ** 2 for place in places)
    return slope, 2 * math.sqrt(rest / (len(values) - 2) / wide)


def single(setting, pattern):
    """Benchmarks by name, those of no figure of the table among them."""
    for program in sorted(path.name for path in setting.programs.glob("*_bench")):
        runs = Runs().add_benchmarks(setting, program, pattern)
        for (who, what), times in runs.times.items():
            name, ours = f"{program}: {who}/{what}", Sample.of(times, "ms")
            beside = [measure for measure in MEASURES if (measure, what) in runs.times]
            if who in MEASURES or not beside:
                yield Figure(name, ours)
            for measure in beside if who not in MEASURES else []:
                yield Figure(name, ours, MEASURES[measure][0],
                             Sample.of(runs.times[measure, what], "ms"))
