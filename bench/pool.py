#!/usr/bin/env python3
"""Measures a pool of stations on a PostgreSQL server of its own.

    bench/pool.py build/release/bin [--printing 1,2,4,50] [--records 1000]

One station takes records from a host that sends them without a pause; they wait in the ledger. Then so many stations
print them, each with a program folder and a session number of its own. Prints the rate at which records are taken and
answered, the rate at which they are printed, how many cards the stations printed each, and what the server's
connections waited for, sampled ten times a second. The server commits durably and listens on a domain socket only.
"""

import argparse
import collections
import os
import pathlib
import shutil
import socket
import subprocess
import sys
import tempfile
import time

from server import Server, join
from station import free_port, make_folder, wait_for_port

SAMPLES_A_SECOND = 10
LIMIT_SECONDS = 600


def start(bin_dir, folder, session):
    environment = dict(os.environ, VANTREL_HOME=str(folder), QT_QPA_PLATFORM="offscreen")
    return subprocess.Popen([bin_dir / "vantrel", str(session)], env=environment)


def end_all(stations):
    for station in stations:
        station.terminate()
    for station in stations:
        station.wait(60)


def take(port, records):
    """@return records a second, from the first byte to the last answer"""
    wait_for_port(port)
    with socket.create_connection(("127.0.0.1", port)) as link:
        begin = time.perf_counter()
        link.sendall(b"".join(f"<Ada Lovelace+{number:08d}+Gold>".encode() for number in range(records)))
        link.shutdown(socket.SHUT_WR)
        answers = link.makefile("r", encoding="cp1252", newline="\r\n").read().splitlines()
        spent = time.perf_counter() - begin
    if len(answers) != records or not all(answer.startswith("OK ") for answer in answers):
        sys.exit(f"{len(answers)} answers to {records} records, such as {answers[:1]}")
    return records / spent


def print_all(server):
    """Waits until nothing waits. @return seconds from the first card's beginning to the last one's end, and waits"""
    waits, samples = collections.Counter(), 0
    limit = time.monotonic() + LIMIT_SECONDS
    while time.monotonic() < limit:
        for line in server.ask("SELECT COALESCE(wait_event_type || ' ' || wait_event, 'none, it works') FROM "
                               "pg_stat_activity WHERE backend_type = 'client backend' AND pid <> pg_backend_pid()"):
            waits[line] += 1
        samples += 1
        if server.ask("SELECT 1 FROM ledgerentries WHERE state IN ('received', 'printing') LIMIT 1") == []:
            break
        time.sleep(1 / SAMPLES_A_SECOND)
    spent = server.ask("SELECT (max(c.changed) - min(c.changed)) / 1000.0 FROM ledgercards c")
    return float(spent[0]), waits, samples


def measure(bin_dir, printing, records):
    with tempfile.TemporaryDirectory() as scratch:
        scratch = pathlib.Path(scratch)
        scratch.chmod(0o755)
        home = scratch / "server"
        home.mkdir()
        server = Server(home)
        try:
            first, port = scratch / "1", free_port()
            make_folder(bin_dir, first, port, False)
            subprocess.run([bin_dir / "vantrel-admin", "store", "copy", first, server.address], check=True,
                           stdout=subprocess.DEVNULL)
            folders = {session: scratch / str(session) for session in range(2, printing + 2)}
            for folder in folders.values():
                shutil.copytree(first, folder)
                join(folder, {"Database": server.address, "Pool": "bench", "Work": "print"})
            join(first, {"Database": server.address, "Pool": "bench", "Work": "take"})
            taking = start(bin_dir, first, 1)
            taken = take(port, records)
            end_all([taking])
            stations = [start(bin_dir, folder, session) for session, folder in folders.items()]
            try:
                spent, waits, samples = print_all(server)
            finally:
                end_all(stations)
            states = server.ask("SELECT state || ' ' || count(*) FROM ledgerentries GROUP BY state")
            if states != [f"printed {records}"]:
                sys.exit(f"not all were printed: {states}")
            shares = [int(count) for count in server.ask(
                "SELECT count(*) FROM ledgerentries GROUP BY sessionnumber ORDER BY 1")]
        finally:
            server.end()
    print(f"printing stations: {printing}, records taken a second: {taken:.0f}, printed a second: "
          f"{records / spent:.0f}, cards of one station: {min(shares)} to {max(shares)} at {len(shares)} stations")
    for event, count in waits.most_common():
        print(f"    {count / samples:6.1f} connections: {event}")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("bin_dir", type=pathlib.Path)
    parser.add_argument("--printing", default="1,2,4,50")
    parser.add_argument("--records", type=int, default=1000)
    options = parser.parse_args()
    for printing in options.printing.split(","):
        measure(options.bin_dir.resolve(), int(printing), options.records)


if __name__ == "__main__":
    main()
