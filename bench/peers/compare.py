#!/usr/bin/env python3
"""Compares the station with the fastest scripts for the same card, one file each, measured alternately.

    bench/peers/compare.py build/release/bin [--rounds N] [--keep]

Only one of them runs at a time. The scripts only draw and write; one variant also stores a number durably.
The station receives each record over TCP, loads the layout and saves the raised number. Needs the
Debian packages python3-reportlab and python3-cairo.
"""

import argparse
import json
import os
import random
import shutil
import statistics
import subprocess
import sys
import tempfile

# The same number as in the station's own benchmark.
CARDS = 2000
HERE = os.path.dirname(os.path.abspath(__file__))


def output_of(*command, **environment):
    environment = os.environ | environment
    return subprocess.run(command, check=True, capture_output=True, text=True, env=environment).stdout


def script(name, pictures, folder, *options):
    return float(output_of("/usr/bin/python3", os.path.join(HERE, name), pictures, folder, str(CARDS), *options))


def bench(programs, name, folder, *options):
    told = output_of(
        os.path.join(programs, name), "--benchmark_format=json", *options, TMPDIR=folder, VANTREL_BENCH_KEEP="1"
    )
    return json.loads(told)["benchmarks"][0]


def main():
    options = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    options.add_argument("programs", help="the folder of the release build's programs")
    options.add_argument("--rounds", type=int, default=4)
    options.add_argument(
        "--keep",
        action="store_true",
        help="delete cards at the end only: a disk without a journal makes files slowly where many were deleted lately",
    )
    given = options.parse_args()
    work = tempfile.mkdtemp(prefix="cards-")
    pictures = os.path.join(work, "pictures")
    contestants = {
        "station": lambda folder: bench(
            given.programs, "bench_growth", folder, "--benchmark_filter=ByLayouts/1/"
        )["cards_per_s"],
        "bare cairo and Pango in C++": lambda folder: bench(given.programs, "bench_road", folder)["limit_per_s"],
        "pycairo": lambda folder: script("with_pycairo.py", pictures, folder),
        "pycairo, number saved": lambda folder: script("with_pycairo.py", pictures, folder, "save"),
        "ReportLab": lambda folder: script("with_reportlab.py", pictures, folder),
    }
    figures = {name: [] for name in contestants}
    try:
        os.mkdir(pictures)
        output_of(os.path.join(given.programs, "bench_pictures"), pictures)
        for turn in range(given.rounds):
            # A program can slow down the next one, so each round has a different random order.
            for name in random.Random(turn).sample(list(contestants), len(contestants)):
                folder = tempfile.mkdtemp(dir=work)
                figures[name].append(contestants[name](folder))
                if not given.keep:
                    shutil.rmtree(folder)
    except (OSError, subprocess.CalledProcessError) as error:
        sys.exit(f"compare.py: {getattr(error, 'stderr', '') or error}")
    finally:
        shutil.rmtree(work)
    own = statistics.median(figures["station"])
    for name, rates in figures.items():
        rate = statistics.median(rates)
        print(f"{name:30}{rate:8.0f} cards a second   station against it {own / rate:5.2f}")


if __name__ == "__main__":
    main()
