#!/usr/bin/env python3
"""Measures cards per second of one session, and of several sessions that share one database.

    bench/sessions.py build/release/bin [--sessions 4] [--records 1000]

Each session is a separate process with its own port and prints the two-page demo card. For each one a
host sends one record at a time and waits for both files.
"""

import argparse
import os
import pathlib
import re
import subprocess
import tempfile
import threading
import time

from station import PAGES_OF_DEMO_CARD, Host, free_port, make_folder, wait_for_port


def add_sessions(folder, ports):
    """Copies the settings of the first session to the others and gives each its own port."""
    settings = folder / "Vantrel 6.ini"
    text = settings.read_bytes().decode("cp1252")
    first = re.search(r"\[Session 1\].*?(?=^\[|\Z)", text, re.DOTALL | re.MULTILINE).group()
    for number, port in enumerate(ports[1:], 2):
        section = re.sub(r"Port=\d+", f"Port={port}", first.replace("[Session 1]", f"[Session {number}]"))
        text = text.rstrip() + "\r\n" + section.strip() + "\r\n"
    settings.write_bytes(text.encode("cp1252"))


def print_all(host, records):
    for number in range(records):
        host.print_card(number)


def rate(bin_dir, sessions, records):
    with tempfile.TemporaryDirectory() as scratch:
        folder = pathlib.Path(scratch) / "Vantrel"
        ports = [free_port() for _ in range(sessions)]
        make_folder(bin_dir, folder, ports[0], False)
        add_sessions(folder, ports)
        environment = dict(os.environ, VANTREL_HOME=str(folder), QT_QPA_PLATFORM="offscreen")
        stations = [
            subprocess.Popen([bin_dir / "vantrel", str(number)], env=environment) for number in range(1, sessions + 1)
        ]
        try:
            hosts = []
            for number, port in enumerate(ports, 1):
                wait_for_port(port)
                hosts.append(Host(port, folder / "Printed" / f"Session {number}"))
                hosts[-1].print_card(0)
            begin = time.perf_counter()
            senders = [threading.Thread(target=print_all, args=(host, records)) for host in hosts]
            for sender in senders:
                sender.start()
            for sender in senders:
                sender.join()
            spent = time.perf_counter() - begin
            printed = sum(host.files for host in hosts)
            assert printed == sessions * (records + 1) * PAGES_OF_DEMO_CARD
            return sessions * records / spent
        finally:
            for station in stations:
                station.terminate()
            for station in stations:
                station.wait(10)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("bin_dir", type=pathlib.Path)
    parser.add_argument("--sessions", type=int, default=4)
    parser.add_argument("--records", type=int, default=1000)
    options = parser.parse_args()
    for sessions in (1, options.sessions):
        cards = rate(options.bin_dir.resolve(), sessions, options.records)
        print(f"sessions: {sessions}, two-page cards a second together: {cards:.0f}")


if __name__ == "__main__":
    main()
