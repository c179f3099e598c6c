#!/usr/bin/env python3
"""Shows what becomes of cards in ten faults, with vantrel-print and with those who make cards otherwise.

    bench/peers/faults.py build/release/bin [WORD-OF-A-FAULT...]

Each fault is really brought about, and what is told is what was found then. The peers are the scripts and the
template beside this file, a file for each card, as quickly written as their users write them: they could be made
to withstand most of this by whoever thinks of it. vantrel-print has the settings recommended for a new station.
Needs root for a disk that is full, the package strace, and what compare_peers.py needs.
"""

import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time

from book import file_of, photo_of
from compare_peers import Peers

REMARK = b"taken at 7 Harbour Road"


class Run:
    """Cards of one peer in a new folder."""

    def __init__(self, peers, name, cards, place=None):
        self.place = place or tempfile.mkdtemp(dir=peers.work)
        self.commands = peers.commands(name, cards, self.place, True)
        self.process = None

    def start(self, before=()):
        """Starts all its commands as one group of processes; `before` stands in front of each."""
        script = " || exit 1\n".join(" ".join(quoted(word) for word in [*before, *words]) for words in self.commands)
        self.process = subprocess.Popen(
            ["sh", "-c", script], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, start_new_session=True
        )
        return self

    def wait(self):
        """@return its status and what it told"""
        out, err = self.process.communicate()
        return self.process.returncode, out + err

    def end_by(self, number):
        os.killpg(self.process.pid, number)
        return self.wait()

    def files(self):
        return sorted(os.path.join(self.place, name) for name in os.listdir(self.place) if name.endswith(".pdf"))

    def until(self, files):
        while len(self.files()) < files and self.process.poll() is None:
            time.sleep(0.002)


def quoted(word):
    return "'" + word.replace("'", "'\\''") + "'"


def is_whole(path):
    return subprocess.run(["qpdf", "--check", path], capture_output=True, check=False).returncode == 0


def torn(files):
    return sum(not is_whole(path) for path in files)


def killed(peers, name):
    """Kills it at moments that are spread over a whole run."""
    found, kills, cards = 0, 10, 4 if name in ("WeasyPrint", "glabels") else 12
    begin = time.perf_counter()
    Run(peers, name, cards).start().wait()
    whole = time.perf_counter() - begin
    for kill in range(kills):
        run = Run(peers, name, cards).start()
        time.sleep(whole * (kill + 1) / (kills + 1))
        run.end_by(signal.SIGKILL)
        found += torn(run.files()) > 0
    return f"{found} of {kills} kills left a torn file" if found else f"no torn file after {kills} kills"


def power_cut(peers, name):
    log = os.path.join(peers.work, "strace")
    cards = 3
    run = Run(peers, name, cards).start(["strace", "-f", "-y", "-A", "-o", log, "-e", "trace=fsync,fdatasync"])
    run.wait()
    with open(log, encoding="utf-8", errors="replace") as told:
        forced = sum(run.place in line for line in told)
    os.remove(log)
    return "each card is forced to the disk" if forced >= cards else "no card is forced to the disk" if not forced else "some are"


def full_disk(peers, name):
    place = tempfile.mkdtemp(dir=peers.work)
    subprocess.run(["mount", "-t", "tmpfs", "-o", "size=700k", "none", place], check=True)
    try:
        run = Run(peers, name, 5, place).start()
        status, _ = run.wait()
        broken = torn(run.files())
    finally:
        subprocess.run(["umount", place], check=True)
    said = "ends with a failure" if status else "ends as if all were well"
    return f"{said}, {broken or 'no'} torn file{'s' if broken > 1 else ''}"


def name_taken(peers, name):
    run = Run(peers, name, 2)
    with open(file_of(run.place, 1), "w", encoding="utf-8") as file:
        file.write("kept")
    run.start().wait()
    with open(file_of(run.place, 1), "rb") as file:
        return "the older file is kept" if file.read() == b"kept" else "the older file is gone"


def two_at_once(peers, name):
    cards = 10
    first = Run(peers, name, cards)
    second = Run(peers, name, cards, first.place)
    first.start()
    second.start()
    refused = sum(run.wait()[0] != 0 for run in (first, second))
    said = "one run is refused" if refused else "both end as if all were well"
    return f"{len(first.files())} files of {2 * cards} cards, {said}"


def interrupted(peers, name):
    run = Run(peers, name, 12).start()
    run.until(2)
    _, told = run.end_by(signal.SIGINT)
    where = "tells the row to go on with" if "--first" in told else "tells no row to go on with"
    broken = torn(run.files())
    return f"{where}, {broken or 'no'} torn file"


def photo_missing(peers, name):
    os.rename(photo_of(peers.pictures, 3), peers.work + "/away")
    run = Run(peers, name, 5).start()
    status, told = run.wait()
    os.rename(peers.work + "/away", photo_of(peers.pictures, 3))
    return cards_and_said(run, status, told)


def cards_and_said(run, status, told):
    said = "ends with a failure" if status else "says so" if told.strip() else "says nothing"
    return f"{len(run.files())} of 5 cards, {said}"


def photo_cut(peers, name):
    path = photo_of(peers.pictures, 3)
    with open(path, "rb") as file:
        whole = file.read()
    replace(path, whole[: len(whole) // 2])
    run = Run(peers, name, 5).start()
    status, told = run.wait()
    replace(path, whole)
    shown = ""
    if len(run.files()) == 5:
        listed = subprocess.run(["pdfimages", "-list", run.files()[2]], capture_output=True, text=True, check=False)
        pictures = len([line for line in listed.stdout.splitlines()[2:] if line.split()[2] == "image"])
        shown = ", part of a picture on the card" if pictures > 1 else ", none of it on the card"
    return cards_and_said(run, status, told) + shown


def replace(path, content):
    with open(path + ".new", "wb") as file:
        file.write(content)
    os.replace(path + ".new", path)


def remark(peers, name):
    path = photo_of(peers.pictures, 3)
    with open(path, "rb") as file:
        whole = file.read()
    replace(path, whole[:2] + b"\xff\xfe" + (len(REMARK) + 2).to_bytes(2, "big") + REMARK + whole[2:])
    run = Run(peers, name, 5).start()
    run.wait()
    replace(path, whole)
    with open(run.files()[2], "rb") as file:
        return "it is in the card's file" if REMARK in file.read() else "it is not in the card's file"


def readers(peers, name):
    run = Run(peers, name, 1).start()
    run.wait()
    return "others may read the card" if os.stat(run.files()[0]).st_mode & 0o004 else "user and group only"


FAULTS = (
    ("killed in a run of cards", killed),
    ("a power cut behind a card", power_cut),
    ("a full disk", full_disk),
    ("a file of that name is there", name_taken),
    ("two runs at once into one folder", two_at_once),
    ("Ctrl+C", interrupted),
    ("the photo of one of five rows is missing", photo_missing),
    ("the photo of one of five rows is cut off", photo_cut),
    ("a remark in the file of a photo", remark),
    ("other users of the machine", readers),
)


def main():
    if len(sys.argv) < 2:
        sys.exit("usage: faults.py FOLDER-OF-PROGRAMS [WORD-OF-A-FAULT...]")
    os.umask(0o022)
    work = tempfile.mkdtemp(prefix="faults-")
    try:
        peers = Peers(sys.argv[1], work, 12)
        for fault, bring_about in FAULTS:
            if sys.argv[2:] and not any(word in fault for word in sys.argv[2:]):
                continue
            print(fault)
            for name in ("keeping", "pycairo", "ReportLab", "WeasyPrint", "glabels"):
                print(f"  {name:12}{bring_about(peers, name)}", flush=True)
    finally:
        shutil.rmtree(work)


if __name__ == "__main__":
    main()
