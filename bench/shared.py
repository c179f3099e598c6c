#!/usr/bin/env python3
"""Measures stations whose store is on a PostgreSQL server of its own against one whose store is a file.

    bench/shared.py build/release/bin [--records 1000] [--rounds 3] [--folder FOLDER]

All have the settings recommended for a new station and answer their hosts, who send a record, or all of them, and
read the answers. One station prints with its store in a file and on the server; then four print at once, each a layout
of its own, and all the same one. Prints cards of two pages a second, that of all stations together, and the
processor time that a card takes of the stations and of the server. The server commits durably, in the same
folder, where the stations print.
"""

import argparse
import contextlib
import os
import pathlib
import shutil
import socket
import sqlite3
import statistics
import subprocess
import sys
import tempfile
import threading
import time

from server import Server, join
from station import cpu_seconds, free_port, make_folder, wait_for_port

LAYOUT = "Member Card"


def add_copies_of_layout(folder, count):
    """Puts copies of the layout into the file, whose names end with 1 and so on."""
    with contextlib.closing(sqlite3.connect(folder / "Vantrel.dat")) as store, store:
        for table in ("LayoutParams", "Controls", "Serializer"):
            columns = [row[1] for row in store.execute(f"PRAGMA table_info({table})")][1:]
            values = ", ".join("?" if column == "LayoutName" else column for column in columns)
            for number in range(1, count + 1):
                store.execute(f"INSERT INTO {table} ({', '.join(columns)}) SELECT {values} FROM {table} "
                              "WHERE LayoutName = ?", (f"{LAYOUT} {number}", LAYOUT))


def ask(port, records, in_flight):
    with socket.create_connection(("127.0.0.1", port)) as link:
        answers = link.makefile("r", encoding="cp1252", newline="\r\n")
        for first in range(0, records, in_flight):
            count = min(in_flight, records - first)
            link.sendall(b"".join(f"<Ada Lovelace+{first + i:08d}+Gold>".encode() for i in range(count)))
            for _ in range(count):
                answer = answers.readline()
                if not answer.startswith("OK "):
                    sys.exit(f"a record failed: {answer}")


def cpu_of_server(server):
    """Of all its processes that live, in seconds."""
    parents = {}
    for stat in pathlib.Path("/proc").glob("[0-9]*/stat"):
        try:
            parents[stat.parent.name] = stat.read_text().rsplit(")", 1)[1].split()[1]
        except OSError:
            continue
    def belongs(pid):
        while pid in parents and pid != str(server.process.pid):
            pid = parents[pid]
        return pid == str(server.process.pid)
    total = 0.0
    for pid in filter(belongs, parents):
        try:
            total += cpu_seconds(int(pid))
        except OSError:
            continue
    return total


def measure(bin_dir, folders, ports, records, in_flight, server):
    stations = []
    for session, folder in enumerate(folders, 1):
        environment = dict(os.environ, VANTREL_HOME=str(folder), QT_QPA_PLATFORM="offscreen")
        stations.append(subprocess.Popen([bin_dir / "vantrel", str(session)], env=environment))
    try:
        for port in ports:
            wait_for_port(port)
            # The first record loads the layout.
            ask(port, 20, 1)
        own = sum(cpu_seconds(station.pid) for station in stations)
        others = cpu_of_server(server)
        hosts = [threading.Thread(target=ask, args=(port, records, in_flight)) for port in ports]
        begin = time.perf_counter()
        for host in hosts:
            host.start()
        for host in hosts:
            host.join()
        spent = time.perf_counter() - begin
        cards = records * len(folders)
        own = sum(cpu_seconds(station.pid) for station in stations) - own
        others = cpu_of_server(server) - others
    finally:
        for station in stations:
            station.terminate()
        for station in stations:
            station.wait(60)
    return cards / spent, own / cards * 1000, others / cards * 1000


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("bin_dir", type=pathlib.Path)
    parser.add_argument("--records", type=int, default=1000)
    parser.add_argument("--rounds", type=int, default=3)
    parser.add_argument("--folder", type=pathlib.Path, help="where the stores and the cards are")
    options = parser.parse_args()
    bin_dir = options.bin_dir.resolve()
    stations = 4

    with tempfile.TemporaryDirectory(dir=options.folder) as scratch:
        scratch = pathlib.Path(scratch)
        scratch.chmod(0o755)
        home = scratch / "server"
        home.mkdir()
        server = Server(home)
        try:
            first = scratch / "first"
            make_folder(bin_dir, first, free_port(), False)
            add_copies_of_layout(first, stations)
            subprocess.run([bin_dir / "vantrel-admin", "store", "copy", first, server.address], check=True,
                           stdout=subprocess.DEVNULL)

            def folders_of(name, layouts, address):
                folders, ports = [], []
                for session, layout in enumerate(layouts, 1):
                    folders.append(scratch / f"{name} {session}")
                    ports.append(free_port())
                    shutil.copytree(first, folders[-1])
                    join(folders[-1], {"Database": address} if address else {},
                         [(r"\[Session \d+\]", f"[Session {session}]"), (r"Port=\d+", f"Port={ports[-1]}"),
                          (r"LastLayout=[^\r]*", f"LastLayout={layout}")])
                return folders, ports

            own = [f"{LAYOUT} {number}" for number in range(1, stations + 1)]
            cases = {
                "one station, a file": folders_of("file", own[:1], ""),
                "one station, the server": folders_of("one", own[:1], server.address),
                "four stations, a layout each": folders_of("own", own, server.address),
                "four stations, one layout": folders_of("same", [LAYOUT] * stations, server.address),
            }
            for in_flight in (1, options.records):
                rates = {case: [] for case in cases}
                for _ in range(options.rounds):
                    for case, (folders, ports) in cases.items():
                        rate, station_ms, server_ms = measure(bin_dir, folders, ports, options.records, in_flight,
                                                              server)
                        rates[case].append(rate)
                        print(f"{'one by one' if in_flight == 1 else 'all at once'}, {case}: {rate:.0f} cards a "
                              f"second, {station_ms:.2f} ms of the stations and {server_ms:.2f} ms of the server each",
                              flush=True)
                file, one, own_four, same_four = (rates[case] for case in cases)
                for text, over, under in (("the server against a file", one, file),
                                          ("four of a layout each against one", own_four, one),
                                          ("four of one layout against one", same_four, one)):
                    ratios = [a / b for a, b in zip(over, under)]
                    print(f"    {text}: {statistics.median(ratios):.2f} ({min(ratios):.2f} to {max(ratios):.2f})",
                          flush=True)
        finally:
            server.end()


if __name__ == "__main__":
    main()
