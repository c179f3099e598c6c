#!/usr/bin/env python3
"""Compares vantrel-print with those who make cards otherwise: a file for each card, and one file of all.

    bench/peers/compare_peers.py build/release/bin [--rounds N] [--scale X]

Each card has ten texts and a number, a background that all share, and a photo of its own. In each round every
peer runs right behind a run of vantrel-print; rates are told as ratios of these pairs, so that a busy machine
slows down both. Each runs in a process of its own from its start to its end. Start-up is the time of a run of
one card. Needs the Debian packages python3-reportlab, python3-cairo, weasyprint and glabels; the last two make
fewer cards, since they take long.
"""

import argparse
import os
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

from book import file_of
from book_glabels import write_glabels
from book_station import LAYOUT, write_station

HERE = os.path.dirname(os.path.abspath(__file__))
DESIGNER = "glabels-3-batch"
# With each the number of cards of a run: a file each, one file.
CARDS = {
    "own": (2000, 2000),
    "pycairo": (2000, 2000),
    "ReportLab": (400, 2000),
    "WeasyPrint": (40, 100),
    "glabels": (20, 50),
}
SCRIPTS = {"pycairo": "book_pycairo.py", "ReportLab": "book_reportlab.py", "WeasyPrint": "book_weasyprint.py"}
KEEPS = "[Station]\nLedger=True\nKeepEveryRecord=True\nUniqueNumbers=True\n"


def measured(commands):
    """@return the seconds of these commands, one after the other, and the highest resident memory in MiB"""
    begin, highest = time.perf_counter(), 0
    for command in commands:
        with open(os.devnull, "w", encoding="utf-8") as nowhere:
            process = subprocess.Popen(command, stdout=nowhere, stderr=subprocess.PIPE)
        told = process.stderr.read()
        _, status, usage = os.wait4(process.pid, 0)
        process.stderr.close()
        process.returncode = status
        if status != 0:
            sys.exit(f"{os.path.basename(sys.argv[0])}: {command[0]} failed: {told.decode(errors='replace')}")
        highest = max(highest, usage.ru_maxrss / 1024)
    return time.perf_counter() - begin, highest


def require_cards(place, cards):
    """Ends the program unless all cards are there."""
    found = len(os.listdir(place)) if os.path.isdir(place) else -1
    if found < 0:
        told = subprocess.run(["pdfinfo", place], check=True, capture_output=True, text=True).stdout
        found = int(told.split("Pages:")[1].split()[0])
    if found != cards:
        sys.exit(f"{os.path.basename(sys.argv[0])}: {place} has {found} cards of {cards}")


class Peers:
    def __init__(self, programs, work, most):
        self.programs, self.work = programs, work
        self.pictures = os.path.join(work, "pictures")
        os.mkdir(self.pictures)
        subprocess.run([os.path.join(programs, "bench_pictures"), self.pictures], check=True, capture_output=True)
        # In a process of its own, since a process is told the memory of the one that began it.
        subprocess.run(["/usr/bin/python3", os.path.join(HERE, "book_photos.py"), self.pictures, str(most)], check=True)
        self.tables = {}

    def run(self, name, cards, each):
        """@return seconds and memory of one run"""
        place = os.path.join(self.work, "cards" if each else "cards.pdf")
        if each:
            os.mkdir(place)
        commands = self.commands(name, cards, place, each)
        result = measured(commands)
        require_cards(place, cards)
        if each:
            shutil.rmtree(place)
        else:
            os.remove(place)
        return result

    def commands(self, name, cards, place, each):
        if name in SCRIPTS:
            return [["/usr/bin/python3", os.path.join(HERE, SCRIPTS[name]), self.pictures, place, str(cards)]]
        if name == "glabels":
            return self.designer(cards, place, each)
        station = os.path.join(self.work, name)
        if (name, cards) not in self.tables:
            shutil.rmtree(station, ignore_errors=True)
            self.tables = {known: path for known, path in self.tables.items() if known[0] != name}
            self.tables[name, cards] = write_station(self.programs, station, self.pictures, cards)
            if name == "keeping":
                with open(os.path.join(station, "Vantrel 6.ini"), "w", encoding="utf-8") as settings:
                    settings.write(KEEPS)
        command = [os.path.join(self.programs, "vantrel-print"), station, LAYOUT, self.tables[name, cards], "--header"]
        command += ["--images", os.path.join(self.pictures, "photos"), "--quiet"]
        return [[*command, "--each" if each else "--one", place]]

    def designer(self, cards, place, each):
        """It makes one file of a table, so a file each is a run each."""
        if not each:
            return [[DESIGNER, "-o", place, write_glabels(self.work, self.pictures, cards)]]
        commands = []
        for card in range(1, cards + 1):
            folder = os.path.join(self.work, f"designed-{card}")
            os.makedirs(folder, exist_ok=True)
            commands.append([DESIGNER, "-o", file_of(place, card), write_glabels(folder, self.pictures, 1)])
        return commands


def compare(peers, names, rounds, scale, each):
    cards = {name: max(1, round(CARDS.get(name, CARDS["own"])[0 if each else 1] * scale)) for name in ["own", *names]}
    rates = {name: [] for name in cards}
    ratios = {name: [] for name in names}
    memory = {name: 0.0 for name in cards}

    def rate_of(name):
        seconds, highest = peers.run(name, cards[name], each)
        memory[name] = max(memory[name], highest)
        rates[name].append(cards[name] / seconds)
        return rates[name][-1]

    for _ in range(rounds):
        for name in names:
            own = rate_of("own")
            ratios[name].append(own / rate_of(name))
    starts = {name: [] for name in cards}
    for _ in range(rounds):
        for name in cards:
            starts[name].append(peers.run(name, 1, each)[0])
    print("a file each" if each else "one file of all")
    for name in cards:
        against = f"{statistics.median(ratios[name]):8.2f}" if name in ratios else " " * 8
        low = f" ({min(ratios[name]):.2f} to {max(ratios[name]):.2f})" if name in ratios else ""
        print(
            f"  {name:12}{cards[name]:6} cards{statistics.median(rates[name]):9.1f} a second{against}{low}"
            f"   start {statistics.median(starts[name]):6.2f} s{memory[name]:8.0f} MiB",
            flush=True,
        )


def main():
    options = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    options.add_argument("programs", help="the folder of the release build's programs")
    options.add_argument("--rounds", type=int, default=3)
    options.add_argument("--scale", type=float, default=1.0, help="of the numbers of cards")
    given = options.parse_args()
    names = ["keeping", "pycairo", "ReportLab"]
    names += ["WeasyPrint"] if shutil.which("weasyprint") else []
    names += ["glabels"] if shutil.which(DESIGNER) else []
    work = tempfile.mkdtemp(prefix="peers-")
    try:
        peers = Peers(given.programs, work, round(2000 * given.scale))
        print(f"load at the beginning: {os.getloadavg()[0]:.1f}")
        for each in (True, False):
            compare(peers, names, given.rounds, given.scale, each)
        print(f"load at the end: {os.getloadavg()[0]:.1f}")
    except (OSError, subprocess.CalledProcessError) as error:
        sys.exit(f"compare_peers.py: {getattr(error, 'stderr', '') or error}")
    finally:
        shutil.rmtree(work)


if __name__ == "__main__":
    main()
