#!/usr/bin/env python3
"""Measures the engine beside what one would take instead of it, and prints a table.
Started by scripts/bench, in the run directory of a build and with a display.

    scripts/bench                    all rows
    scripts/bench world memory       these
    scripts/bench --repetitions 20   more of them; the default is seven

What is compared is measured within seconds of each other, again in every repetition,
so that both meet the machine in the same mood: a ratio is that of one repetition.
"""

import argparse
import json
import pathlib
import statistics
import subprocess
import sys
import time
from dataclasses import dataclass

PROGRAMS = pathlib.Path.cwd().parent
SECONDS = 0.5        # that a loop is measured for in a repetition
STARTS = 5           # of a program in a repetition; their median counts
SAME_PAIRS = 0.15    # how far two worlds may differ in the overlaps that they find
PEER_PACKAGES = {"box2d-world": "libbox2d-dev", "libtcod-screen": "libtcod-dev"}

pairs_found = {}     # overlaps in a world of that size, in the program that came first


def run(program, *options):
    """What the program prints; ends this one when it fails."""
    try:
        return subprocess.run([PROGRAMS / program, *options], text=True, check=True, timeout=600,
                              stdin=subprocess.DEVNULL, capture_output=True).stdout
    except subprocess.SubprocessError as error:
        sys.exit(f"bench: {program} {' '.join(options)}: {error}\n{str(error.stderr)[-3000:]}")


def compare_pairs(place, size, pairs):
    """Two worlds that do not find the same overlaps do not do the same work."""
    expected = pairs_found.setdefault(size, pairs)
    if abs(pairs - expected) > SAME_PAIRS * expected:
        sys.exit(f"bench: {place} found {pairs:.0f} overlaps, not about {expected:.0f}")


@dataclass(frozen=True)
class Loop:
    """Benchmarks of a Google Benchmark program, run in a process of their own."""
    program: str
    pattern: str                # of the benchmarks' names
    counter: str = "real_time"  # what is wanted of them

    def measure(self):
        """Name to value: nanoseconds, or what the counter counts."""
        report = run(self.program, f"--benchmark_filter=^({self.pattern})(/[a-z].*)?$",
                     f"--benchmark_min_time={SECONDS}", "--benchmark_format=json")
        results = {result["name"]: result
                   for result in (json.loads(report)["benchmarks"] if report else [])
                   if not result.get("error_occurred")}
        if not results:
            sys.exit(f"bench: {self.program} measured no {self.pattern}")
        for name, result in results.items():
            if "pairs" in result:
                compare_pairs(f"{self.program} {name}", name.split("/")[1], result["pairs"])
        return {name: result[self.counter] for name, result in results.items()}


@dataclass(frozen=True)
class Start:
    """A program from its start to its end."""
    program: str

    def measure(self):
        times = []
        for _ in range(STARTS):
            start = time.perf_counter_ns()
            run(self.program)
            times.append(time.perf_counter_ns() - start)
        return {"": statistics.median(times)}


@dataclass(frozen=True)
class Limit:
    """A fixed number to compare with."""
    program = None
    value: float

    def measure(self):
        return {"": self.value}


@dataclass(frozen=True)
class Row:
    word: str      # that chooses it
    what: str
    ours: object
    peer: str      # "{}" is the fastest of those that were measured
    theirs: object
    goal: str      # the ratio is to be at most that: a number, or a fraction as "1/15"
    show: object   # a value as text


def duration(nanoseconds):
    for unit, size in (("s", 1e9), ("ms", 1e6)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.3g} {unit}"
    return f"{nanoseconds / 1e3:.3g} µs"


def megabytes(count):
    return f"{count / 1e6:.3g} MB"


def update(count):
    return Loop("glidewing-world", f"Update/{count}")


def world(name):
    return Loop("glidewing-world", name)


FULL_SCREEN = Loop("glidewing-screen", "FullScreen")
LIBTCOD_SCREEN = Loop("libtcod-screen", ".*")
ROWS = [
    Row("screen", "full screen, every cell new", FULL_SCREEN,
        "libtcod, {}", LIBTCOD_SCREEN, "0.9", duration),
    Row("screen", "full screen, every cell new", FULL_SCREEN,
        "a picture of its size", Loop("sfml-screen", "Picture"), "1.15", duration),
    Row("screen", "full screen, every cell new", FULL_SCREEN,
        "SFML, cell by cell", Loop("sfml-screen", "FullScreen"), "1/15", duration),
    Row("play", "step of play, shown", Loop("glidewing-screen", "Step"),
        "an empty frame", Loop("sfml-screen", "EmptyFrame"), "4", duration),
    Row("play", "step of play, without a window", Loop("glidewing-screen", "StepHeadless"),
        "Box2D, 35 boxes", Loop("box2d-world", "Step/35"), "1", duration),
    Row("play", "step of play, kept as text", Loop("glidewing-screen", "StepText"),
        "nothing drawn", Loop("glidewing-screen", "StepHeadless"), "2", duration),
    *(Row("world", f"update of {count:,} objects", update(count),
          f"Box2D, {count:,} boxes", Loop("box2d-world", f"Step/{count}"), "1/2", duration)
      for count in (100, 1000, 10000)),
    Row("world", "update of 10,000 objects", update(10000),
        "update of 1,000", update(1000), "11.5", duration),
    Row("world", "10,000 objects marked and deleted", world("Delete/10000"),
        "update of 10,000", update(10000), "1", duration),
    Row("world", "40,000 objects marked and deleted", world("Delete/40000"),
        "of 10,000", world("Delete/10000"), "5", duration),
    Row("world", "look-up by type among 10,000", world("FindByType"),
        "a plain loop", world("FindByTypePlain"), "2", duration),
    Row("world", "event to 10,000 objects", world("Broadcast"),
        "a plain loop", world("BroadcastPlain"), "1.5", duration),
    Row("log", "line of the log, flushed", world("LogLine"),
        "fprintf and fflush", world("LogLinePlain"), "1.3", duration),
    Row("memory", "10,000 objects with a sprite", Loop("glidewing-world", "Memory", "bytes"),
        "limit", Limit(16e6), "1", megabytes),
    Row("start", "start to first frame and end", Start("glidewing-start"),
        "SFML, a line of text", Start("sfml-start"), "1.2", duration),
]


def built(measurement):
    return measurement.program is None or (PROGRAMS / measurement.program).exists()


def leave_out_unbuilt(rows):
    """The rows that can be measured; says which cannot."""
    for program, package in PEER_PACKAGES.items():
        lost = [row.what for row in rows if row.theirs.program == program]
        if lost and not (PROGRAMS / program).exists():
            print(f"Left out, because {package} was not there to build {program}: {'; '.join(lost)}")
    return [row for row in rows if built(row.theirs)]


def measure(rows, repetitions):
    """A list of repetitions; each has what a measurement gave. Neighbours in a row
    are measured one after the other."""
    measurements = list(dict.fromkeys(part for row in rows for part in (row.ours, row.theirs)))
    results = []
    for repetition in range(repetitions):
        print(f"Measuring, {repetition + 1} of {repetitions} ...", flush=True)
        results.append({part: part.measure() for part in measurements})
    return results


def fastest(results, measurement):
    """The name with the lowest median, and its value in each repetition."""
    series = {name: [result[measurement][name] for result in results]
              for name in results[0][measurement]
              if all(name in result[measurement] for result in results)}
    return min(series.items(), key=lambda item: statistics.median(item[1]))


def line(row, results):
    _, ours = fastest(results, row.ours)
    name, theirs = fastest(results, row.theirs)
    ratios = [our / their for our, their in zip(ours, theirs)]
    numerator, _, denominator = row.goal.partition("/")
    is_met = statistics.median(ratios) <= float(numerator) / float(denominator or 1)
    return [row.what, row.show(statistics.median(ours)),
            row.peer.format(name.split("/")[0]), row.show(statistics.median(theirs)),
            *(f"{ratio:.3g}" for ratio in (min(ratios), statistics.median(ratios), max(ratios))),
            f"<= {row.goal}", "met" if is_met else "MISSED"]


def print_table(lines):
    head = ["Glidewing", "", "compared with", "", "lowest", "median", "highest", "goal", ""]
    widths = [max(map(len, column)) for column in zip(head, *lines)]
    print("\nTimes are real time, and medians. The three ratios are ours divided by theirs: less is")
    print("better, and the goal is for the one in the middle.\n")
    for cells in [head, ["-" * width for width in widths], *lines]:
        print("  ".join(f"{cell:>{width}}" if column in (1, 3, 4, 5, 6) else f"{cell:<{width}}"
                        for column, (cell, width) in enumerate(zip(cells, widths))).rstrip())


def main():
    words = list(dict.fromkeys(row.word for row in ROWS))
    parser = argparse.ArgumentParser(
        prog="scripts/bench",
        description="Measures the engine beside what one would take instead of it.")
    parser.add_argument("words", nargs="*", metavar="WORD",
                        help=f"choose rows: {', '.join(words)}; all without any")
    parser.add_argument("--repetitions", type=int, default=7, metavar="N")
    options = parser.parse_args()
    for word in options.words:
        if word not in words:
            parser.error(f"no row is called {word}; there are {', '.join(words)}")
    if options.repetitions < 1:
        parser.error("there must be a repetition")

    rows = leave_out_unbuilt([row for row in ROWS if row.word in (options.words or words)])
    if not rows:
        sys.exit("bench: nothing is left to measure")
    results = measure(rows, options.repetitions)
    print_table([line(row, results) for row in rows])


if __name__ == "__main__":
    main()
