#!/usr/bin/env python3
"""The station against the quickest scripts for the same card, one file each, all in turns.

    bench/peers/compare.py build/release/bin [--rounds N] [--seconds S]

The scripts only draw and write. The station receives each record over TCP, loads the layout and
saves the risen number durably besides. Needs the Debian packages python3-reportlab, python3-cairo.
"""

import argparse
import json
import os
import shutil
import statistics
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def script(name, pictures, seconds):
    folder = tempfile.mkdtemp(prefix="cards-")
    try:
        return float(output_of("/usr/bin/python3", os.path.join(HERE, name), pictures, folder, str(seconds)))
    finally:
        shutil.rmtree(folder)


def station(programs, seconds):
    told = output_of(os.path.join(programs, "bench_road"), "--benchmark_format=json", f"--benchmark_min_time={seconds}")
    result = json.loads(told)["benchmarks"][0]
    return result["cards_per_s"], result["limit_per_s"]


def main():
    options = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    options.add_argument("programs", help="the folder of the release build's programs")
    options.add_argument("--rounds", type=int, default=3)
    options.add_argument("--seconds", type=float, default=3)
    given = options.parse_args()
    figures = {"station": [], "bare cairo and Pango in C++": [], "pycairo": [], "ReportLab": []}
    pictures = tempfile.mkdtemp(prefix="pictures-")
    try:
        output_of(os.path.join(given.programs, "bench_pictures"), pictures)
        for _ in range(given.rounds):
            cards, limit = station(given.programs, given.seconds)
            figures["station"].append(cards)
            figures["bare cairo and Pango in C++"].append(limit)
            figures["pycairo"].append(script("with_pycairo.py", pictures, given.seconds))
            figures["ReportLab"].append(script("with_reportlab.py", pictures, given.seconds))
    except (OSError, subprocess.CalledProcessError) as error:
        sys.exit(f"compare.py: {getattr(error, 'stderr', '') or error}")
    finally:
        shutil.rmtree(pictures)
    own = statistics.median(figures["station"])
    for name, rates in figures.items():
        rate = statistics.median(rates)
        print(f"{name:30}{rate:8.0f} cards a second   station against it {own / rate:5.2f}")


if __name__ == "__main__":
    main()
