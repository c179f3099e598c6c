#!/usr/bin/python3
"""Measures the console: how soon its page is ready in a browser, and what those who look on cost a station.

    bench/console.py build/release/bin [--rounds 5] [--records 1000] [--viewers 100]

A demo station with the settings recommended for a new one prints records that a host sends one at a time,
waiting for each answer; in changing order with viewers of the console's live events and without, each round
with a fresh start of the viewers. Then headless Chromium opens the page, logged in: ready is when the stations,
the newest cards with their pictures and "Live" are shown.
"""

import argparse
import multiprocessing
import os
import pathlib
import re
import selectors
import socket
import statistics
import subprocess
import sys
import tempfile
import time
import urllib.request

from burst import answer_hosts
from station import cpu_seconds, free_port, make_folder, resident_mib, wait_for_port

READY = """
const done = arguments[arguments.length - 1];
const look = () => {
  const images = [...document.querySelectorAll('#cards img')];
  if (document.querySelector('#live.on') !== null && images.length > 0 && document.querySelector('#stations li') !== null
      && images.every((image) => image.complete && image.naturalWidth > 0)) done(performance.now());
  else requestAnimationFrame(look);
};
look();"""


def print_records(port, records):
    """@return records a second."""
    with socket.create_connection(("127.0.0.1", port)) as link:
        answers = link.makefile("rb")
        begin = time.perf_counter()
        for number in range(records):
            link.sendall(f"<Ada Lovelace+{number:08d}+Gold>".encode())
            answer = answers.readline()
            if not answer.startswith(b"OK"):
                sys.exit(f"a record failed: {answer}")
        return records / (time.perf_counter() - begin)


def look_on(port, token, count, pipe):
    """Reads the live events over so many connections until it is told to end; tells the bytes."""
    selector = selectors.DefaultSelector()
    for _ in range(count):
        link = socket.create_connection(("127.0.0.1", port))
        link.sendall(f"GET /api/v1/events HTTP/1.1\r\nHost: x\r\nAuthorization: Bearer {token}\r\n\r\n".encode())
        if not link.recv(65536).startswith(b"HTTP/1.1 200"):
            sys.exit("a viewer is not let in")
        selector.register(link, selectors.EVENT_READ)
    pipe.send("looks on")
    received = 0
    while not pipe.poll():
        for key, _ in selector.select(0.2):
            taken = len(key.fileobj.recv(1 << 20))
            if taken == 0:
                sys.exit("a viewer was sent away")
            received += taken
    pipe.send(received)


class Viewers:
    """Those who look on, in a process of their own, as browsers are: in this one they would hold up the host."""

    def __init__(self, port, token, count):
        self.pipe, theirs = multiprocessing.Pipe()
        self.process = multiprocessing.Process(target=look_on, args=(port, token, count, theirs))
        self.process.start()
        theirs.close()
        self.pipe.recv()
        self.bytes = 0

    def end(self):
        self.pipe.send("end")
        self.bytes = self.pipe.recv()
        self.process.join()


def compare(station_port, console_port, station, console, token, options):
    rates = {0: [], options.viewers: []}
    station_cpu = {count: 0.0 for count in rates}
    console_cpu = 0.0
    received = 0
    print_records(station_port, options.records)
    for turn in range(options.rounds):
        for count in sorted(rates, reverse=turn % 2 == 1):
            viewers = Viewers(console_port, token, count) if count else None
            before = cpu_seconds(console.pid)
            station_before = cpu_seconds(station.pid)
            rates[count].append(print_records(station_port, options.records))
            station_cpu[count] += cpu_seconds(station.pid) - station_before
            if viewers is not None:
                console_cpu += cpu_seconds(console.pid) - before
                viewers.end()
                received += viewers.bytes
            # Viewers who have left are noticed in some seconds.
            time.sleep(6)
    for count, found in rates.items():
        print(f"{count} viewers: {statistics.median(found):.0f} records a second "
              f"({', '.join(f'{rate:.0f}' for rate in found)})")
    print(f"ratio: {statistics.median(rates[options.viewers]) / statistics.median(rates[0]):.3f}")
    records = options.rounds * options.records
    for count, spent in station_cpu.items():
        print(f"{count} viewers: {spent / records * 1000:.2f} ms of the station's processor time for a record")
    print(f"for a record {options.viewers} viewers: {console_cpu / records * 1000:.2f} ms of the console's processor time, "
          f"{received / records / options.viewers:.0f} bytes for each")
    print(f"resident memory of the console: {resident_mib(console.pid):.1f} MiB")


def page_ready(address, token, rounds):
    from selenium import webdriver
    from selenium.webdriver.chrome.options import Options
    from selenium.webdriver.chrome.service import Service
    chosen = Options()
    for option in ("--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage", "--window-size=1280,900"):
        chosen.add_argument(option)
    browser = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=chosen)
    try:
        browser.set_script_timeout(60)
        browser.get(address)
        browser.execute_async_script("""
            const [token, done] = arguments;
            fetch('login', { method: 'POST', headers: { 'Content-Type': 'application/json' },
                             body: JSON.stringify({ token }) }).then(() => done());""", token)
        times = []
        for _ in range(rounds):
            browser.execute_cdp_cmd("Network.clearBrowserCache", {})
            browser.get(address)
            times.append(browser.execute_async_script(READY))
        print(f"page ready with its pictures: median {statistics.median(times):.0f} ms, "
              f"the first {times[0]:.0f} ms, longest {max(times):.0f} ms")
    finally:
        browser.quit()


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("bin_dir", type=pathlib.Path)
    parser.add_argument("--rounds", type=int, default=5)
    parser.add_argument("--records", type=int, default=1000)
    parser.add_argument("--viewers", type=int, default=100)
    options = parser.parse_args()
    bin_dir = options.bin_dir.resolve()
    print(f"load of the machine: {os.getloadavg()[0]:.1f}")
    with tempfile.TemporaryDirectory() as scratch:
        folder = pathlib.Path(scratch) / "Vantrel"
        port = free_port()
        make_folder(bin_dir, folder, port, False)
        answer_hosts(folder)
        environment = dict(os.environ, VANTREL_HOME=str(folder), QT_QPA_PLATFORM="offscreen")
        running = [subprocess.Popen([bin_dir / "vantrel"], env=environment)]
        try:
            wait_for_port(port)
            running.append(subprocess.Popen([bin_dir / "vantrel-console", folder, "--listen", "127.0.0.1:0"],
                                            stdout=subprocess.PIPE))
            console = running[1]
            address = re.search(r"http://\S+", console.stdout.readline().decode())[0]
            token = (folder / "Console.token").read_text().strip()
            urllib.request.urlopen(address).read()
            compare(port, int(re.search(r":(\d+)/", address)[1]), running[0], console, token, options)
            page_ready(address, token, 2 * options.rounds)
        finally:
            for process in reversed(running):
                process.terminate()
                process.wait(30)
    print(f"load of the machine: {os.getloadavg()[0]:.1f}")


if __name__ == "__main__":
    main()
