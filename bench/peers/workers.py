#!/usr/bin/env python3
"""Compares vantrel-print --each with one worker and with two.

    bench/peers/workers.py build/release/bin [--cards N] [--rounds N] [--folder FOLDER]

Each card has ten texts, a background that all share, and a photo of its own, and becomes a PDF in a folder. The
runs take turns. FOLDER is where all files are made; /dev/shm leaves the disk out.
"""

import argparse
import os
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

from book_station import LAYOUT, write_station

HERE = os.path.dirname(os.path.abspath(__file__))


def rate(command, folder, cards):
    """@return cards a second"""
    begin = time.perf_counter()
    subprocess.run(command, check=True, capture_output=True)
    seconds = time.perf_counter() - begin
    made = len(os.listdir(folder))
    shutil.rmtree(folder)
    if made != cards:
        sys.exit(f"workers.py: {made} files for {cards} cards")
    return cards / seconds


def main():
    options = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    options.add_argument("programs", help="the folder of the release build's programs")
    options.add_argument("--cards", type=int, default=10_000)
    options.add_argument("--rounds", type=int, default=3)
    options.add_argument("--folder", help="where all files are made")
    given = options.parse_args()
    work = tempfile.mkdtemp(prefix="workers-", dir=given.folder)
    figures = {1: [], 2: []}
    try:
        pictures = os.path.join(work, "pictures")
        os.mkdir(pictures)
        subprocess.run([os.path.join(given.programs, "bench_pictures"), pictures], check=True, capture_output=True)
        photos = ["/usr/bin/python3", os.path.join(HERE, "book_photos.py"), pictures, str(given.cards)]
        subprocess.run(photos, check=True)
        station = os.path.join(work, "station")
        table = write_station(given.programs, station, pictures, given.cards)
        cards = os.path.join(work, "cards")
        own = os.path.join(given.programs, "vantrel-print")
        command = [own, station, LAYOUT, table, "--header", "--quiet", "--each", cards]
        command += ["--images", os.path.join(pictures, "photos")]
        for _ in range(given.rounds):
            for workers in figures:
                figures[workers].append(rate([*command, f"--workers={workers}"], cards, given.cards))
    except (OSError, subprocess.CalledProcessError) as error:
        sys.exit(f"workers.py: {getattr(error, 'stderr', '') or error}")
    finally:
        shutil.rmtree(work)
    rates = {workers: statistics.median(measured) for workers, measured in figures.items()}
    for workers, measured in rates.items():
        print(f"{workers} workers{measured:12.1f} cards a second   against one {measured / rates[1]:6.2f}")


if __name__ == "__main__":
    main()
