#!/usr/bin/env python3
"""Measures a burst of records in one connection to a station that keeps account of its cards.

    bench/burst.py build/release/bin [--records 10000]

The station has the settings recommended for a new one (ledger, every record, unique numbers) and answers.
A host sends all records without a pause and reads the answers meanwhile. They must all be OK, in the order
of the records, and the ledger must hold the records in that order, each with its cards. Prints the rate and
the station's resident memory.
"""

import argparse
import json
import os
import pathlib
import re
import socket
import subprocess
import sys
import tempfile
import threading
import time

from station import PAGES_OF_DEMO_CARD, cpu_seconds, free_port, make_folder, resident_mib, wait_for_port

SETTLED = 1000


def answer_hosts(folder):
    settings = folder / "Vantrel 6.ini"
    text = settings.read_bytes().decode("cp1252")
    text = re.sub(r"\[Station\]\r\n", "[Station]\r\nAnswerHost=True\r\n", text)
    settings.write_bytes(text.encode("cp1252"))


def send_all(link, records):
    for number in range(records):
        link.sendall(f"<Ada Lovelace+{number:08d}+Gold>".encode())
    link.shutdown(socket.SHUT_WR)


def check_answers(answers, records):
    if len(answers) != records:
        sys.exit(f"{len(answers)} answers to {records} records")
    entries = []
    for line in answers:
        word, entry, rest = line.split(" ", 2)
        if word != "OK" or rest != str(PAGES_OF_DEMO_CARD):
            sys.exit(f"a record failed: {line}")
        entries.append(int(entry))
    if entries != sorted(set(entries)):
        sys.exit("the answers are not in the order of the records")
    return entries


def check_ledger(bin_dir, folder, entries):
    listed = subprocess.run([bin_dir / "vantrel-admin", "ledger", "list", folder, "--json", "--limit", "0"],
                            check=True, capture_output=True).stdout
    by_id = {entry["id"]: entry for entry in json.loads(listed)["entries"]}
    names = []
    for number, entry in enumerate(entries):
        if by_id[entry]["values"][1] != f"{number:08d}":
            sys.exit(f"entry {entry} is not that of record {number}")
        names += [card["file"] for card in by_id[entry]["cards"]]
    if names != sorted(set(names)) or len(names) != PAGES_OF_DEMO_CARD * len(entries):
        sys.exit("the cards are not in the order of the records")
    printed = folder / "Printed" / "Session 1"
    missing = [name for name in names if not (printed / name).exists()]
    if missing:
        sys.exit(f"cards are missing: {missing[:3]}")


def burst(port, records, station):
    with socket.create_connection(("127.0.0.1", port)) as link:
        begin = time.perf_counter()
        sender = threading.Thread(target=send_all, args=(link, records))
        sender.start()
        answers, early, highest = [], 0.0, 0.0
        for line in link.makefile("r", encoding="cp1252", newline="\r\n"):
            answers.append(line.rstrip("\r\n"))
            if len(answers) % 100 == 0:
                highest = max(highest, resident_mib(station.pid))
            if len(answers) == min(SETTLED, records):
                early = resident_mib(station.pid)
        spent = time.perf_counter() - begin
        sender.join()
        return answers, spent, early, highest


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("bin_dir", type=pathlib.Path)
    parser.add_argument("--records", type=int, default=10000)
    options = parser.parse_args()
    bin_dir = options.bin_dir.resolve()

    with tempfile.TemporaryDirectory() as scratch:
        folder = pathlib.Path(scratch) / "Vantrel"
        port = free_port()
        make_folder(bin_dir, folder, port, False)
        answer_hosts(folder)
        environment = dict(os.environ, VANTREL_HOME=str(folder), QT_QPA_PLATFORM="offscreen")
        station = subprocess.Popen([bin_dir / "vantrel"], env=environment)
        try:
            wait_for_port(port)
            cpu = cpu_seconds(station.pid)
            load = os.getloadavg()[0]
            answers, spent, early, highest = burst(port, options.records, station)
            cpu = cpu_seconds(station.pid) - cpu
            late = resident_mib(station.pid)
            entries = check_answers(answers, options.records)
            check_ledger(bin_dir, folder, entries)
        finally:
            station.terminate()
            station.wait()
        print(f"{options.records} records of {PAGES_OF_DEMO_CARD} cards, all printed and answered in their order")
        print(f"answers: {options.records / spent:.0f} a second, {cpu / options.records * 1000:.2f} ms of "
              f"processor each, the machine's load before: {load:.1f}")
        print(f"resident memory: {early:.1f} MiB after {min(SETTLED, options.records)} answers, {late:.1f} MiB "
              f"after all, {highest:.1f} MiB at most")


if __name__ == "__main__":
    main()
