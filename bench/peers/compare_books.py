#!/usr/bin/env python3
"""Compares vantrel-print with scripts and with the card designer in Debian: one PDF of many cards.

    bench/peers/compare_books.py build/release/bin [--cards N] [--rounds N]

Each card has ten texts and a number, a background that all share, and a photo of its own. Only one program
runs at a time, each in its own process from its start to its end. Needs the Debian packages python3-reportlab
and python3-cairo; the card designer (package glabels) takes part where it is installed, with fewer cards,
since it takes long.
"""

import argparse
import os
import random
import shutil
import statistics
import subprocess
import sys
import tempfile

from book_glabels import write_glabels
from book_station import LAYOUT, write_station
from compare_peers import DESIGNER, measured, require_cards

HERE = os.path.dirname(os.path.abspath(__file__))
DESIGNER_CARDS = 100


def measure(cards, book, command):
    """@return cards a second, and the highest resident memory in MiB"""
    seconds, highest = measured([command])
    require_cards(book, cards)
    return cards / seconds, highest


def contestants_in(programs, work, pictures, cards):
    """@return for each name its number of cards, its file and its command"""
    book = os.path.join(work, "book.pdf")
    found = {}
    own = os.path.join(programs, "vantrel-print")
    if os.path.exists(own):
        station = os.path.join(work, "station")
        table = write_station(programs, station, pictures, cards)
        photos = os.path.join(pictures, "photos")
        found["vantrel-print --one"] = (
            cards,
            book,
            [own, station, LAYOUT, table, "--header", "--images", photos, "--one", book, "--quiet"],
        )
    for name, script in (("pycairo", "book_pycairo.py"), ("ReportLab", "book_reportlab.py")):
        command = ["/usr/bin/python3", os.path.join(HERE, script), pictures, book, str(cards)]
        found[name] = (cards, book, command)
    if shutil.which(DESIGNER):
        fewer = min(cards, DESIGNER_CARDS)
        template = write_glabels(work, pictures, fewer)
        found[f"{DESIGNER}, {fewer} cards"] = (fewer, book, [DESIGNER, "-o", book, template])
    return found


def main():
    options = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    options.add_argument("programs", help="the folder of the release build's programs")
    options.add_argument("--cards", type=int, default=10_000)
    options.add_argument("--rounds", type=int, default=3)
    given = options.parse_args()
    work = tempfile.mkdtemp(prefix="books-")
    try:
        pictures = os.path.join(work, "pictures")
        os.mkdir(pictures)
        subprocess.run([os.path.join(given.programs, "bench_pictures"), pictures], check=True, capture_output=True)
        # In a process of its own, since a process is told the memory of the one that began it.
        subprocess.run(
            ["/usr/bin/python3", os.path.join(HERE, "book_photos.py"), pictures, str(given.cards)], check=True
        )
        contestants = contestants_in(given.programs, work, pictures, given.cards)
        figures = {name: [] for name in contestants}
        for turn in range(given.rounds):
            for name in random.Random(turn).sample(list(contestants), len(contestants)):
                cards, book, command = contestants[name]
                figures[name].append(measure(cards, book, command))
                os.remove(book)
    except (OSError, subprocess.CalledProcessError) as error:
        sys.exit(f"compare_books.py: {getattr(error, 'stderr', '') or error}")
    finally:
        shutil.rmtree(work)
    first = statistics.median(rate for rate, _ in next(iter(figures.values())))
    for name, measured in figures.items():
        rate = statistics.median(rate for rate, _ in measured)
        memory = max(memory for _, memory in measured)
        print(f"{name:32}{rate:9.1f} cards a second{memory:8.0f} MiB   the first against it {first / rate:7.2f}")


if __name__ == "__main__":
    main()
