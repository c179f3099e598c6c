#!/usr/bin/env python3
"""Measures the built station from outside, as an operator experiences it.

    bench/station.py build/release/bin [--cards 10000] [--bare]

Measures the time from start to listening port, the idle load, the time from a record's last byte to its
last finished file, and resident memory after 100 cards and after many. Uses a temporary demo folder, with
the settings recommended for a new station, or --bare of them.
"""

import argparse
import os
import pathlib
import re
import socket
import subprocess
import sys
import tempfile
import time

PAGES_OF_DEMO_CARD = 2
CLOCK_TICKS = os.sysconf("SC_CLK_TCK")


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def make_folder(bin_dir, folder, port, bare):
    subprocess.run([bin_dir / "vantrel-admin", "demo", folder], check=True, stdout=subprocess.DEVNULL)
    settings = folder / "Vantrel 6.ini"
    text = settings.read_bytes().decode("cp1252")
    text = re.sub(r"Port=\d+", f"Port={port}", text)
    if bare:
        text = re.sub(r"\[Station\]\r\n(?:[^\[\r\n]*\r\n)*", "", text)
    settings.write_bytes(text.encode("cp1252"))


def cpu_seconds(pid):
    fields = pathlib.Path(f"/proc/{pid}/stat").read_text().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / CLOCK_TICKS


def resident_mib(pid):
    for line in pathlib.Path(f"/proc/{pid}/status").read_text().splitlines():
        if line.startswith("VmRSS:"):
            return int(line.split()[1]) / 1024
    raise RuntimeError("no resident size")


def wait_for_port(port, limit=10.0):
    begin = time.perf_counter()
    while time.perf_counter() - begin < limit:
        try:
            socket.create_connection(("127.0.0.1", port)).close()
            return
        except ConnectionRefusedError:
            time.sleep(0.001)
    sys.exit("the station did not open its port")


class Host:
    """Sends one record at a time and waits for its card."""

    def __init__(self, port, printed):
        self.port = port
        self.printed = printed
        self.files = 0

    def print_card(self, number):
        self.files += PAGES_OF_DEMO_CARD
        last = self.printed / f"card-{self.files:06d}.pdf"
        with socket.create_connection(("127.0.0.1", self.port)) as link:
            link.sendall(f"<Ada Lovelace+{number:08d}+Gold>".encode())
            begin = time.perf_counter()
            while not last.exists():
                if time.perf_counter() - begin > 10:
                    sys.exit(f"no card for record {number}")
                time.sleep(0.0001)
            return time.perf_counter() - begin


def percentile(values, share):
    return sorted(values)[min(len(values) - 1, int(len(values) * share))]


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("bin_dir", type=pathlib.Path)
    parser.add_argument("--cards", type=int, default=10000)
    parser.add_argument("--idle-seconds", type=int, default=20)
    parser.add_argument("--bare", action="store_true", help="without the recommended settings")
    options = parser.parse_args()
    bin_dir = options.bin_dir.resolve()

    with tempfile.TemporaryDirectory() as scratch:
        folder = pathlib.Path(scratch) / "Vantrel"
        port = free_port()
        make_folder(bin_dir, folder, port, options.bare)
        environment = dict(os.environ, VANTREL_HOME=str(folder), QT_QPA_PLATFORM="offscreen")

        begin = time.perf_counter()
        station = subprocess.Popen([bin_dir / "vantrel"], env=environment)
        try:
            wait_for_port(port)
            print(f"start to listening port: {(time.perf_counter() - begin) * 1000:.0f} ms")

            time.sleep(2)
            cpu = cpu_seconds(station.pid)
            time.sleep(options.idle_seconds)
            idle = (cpu_seconds(station.pid) - cpu) / options.idle_seconds
            print(f"idle: {idle * 100:.2f} % of a core")

            host = Host(port, folder / "Printed" / "Session 1")
            for number in range(100):
                host.print_card(number)
            early = resident_mib(station.pid)
            cpu = cpu_seconds(station.pid)
            begin = time.perf_counter()
            times = [host.print_card(100 + number) for number in range(options.cards)]
            spent = time.perf_counter() - begin
            late = resident_mib(station.pid)
            print(f"two-page cards: {options.cards / spent:.0f} a second, "
                  f"{(cpu_seconds(station.pid) - cpu) / options.cards * 1000:.2f} ms of processor each")
            print(f"last byte to last file in place: p50 {percentile(times, 0.5) * 1000:.2f} ms, "
                  f"p99 {percentile(times, 0.99) * 1000:.2f} ms")
            print(f"resident memory: {early:.1f} MiB after 100 cards, "
                  f"{late:.1f} MiB after {100 + options.cards}")
        finally:
            station.terminate()
            station.wait(10)


if __name__ == "__main__":
    main()
