"""A PostgreSQL server for measurements."""

import os
import pathlib
import re
import shutil
import subprocess
import time


class Server:
    """A PostgreSQL server in a folder of its own."""

    def __init__(self, folder):
        versions = sorted(pathlib.Path("/usr/lib/postgresql").iterdir(), key=lambda version: int(version.name))
        self.programs = versions[-1] / "bin"
        self.folder = folder
        self.user = ["runuser", "-u", "postgres", "--"] if os.geteuid() == 0 else []
        if self.user:
            shutil.chown(folder, "postgres")
        files = folder / "files"
        self.run([self.programs / "initdb", "--pgdata", files, "--username", "vantrel", "--auth", "trust",
                  "--encoding", "UTF8", "--locale", "C"])
        self.process = subprocess.Popen(
            self.user + [self.programs / "postgres", "-D", files, "-k", folder, "-c", "listen_addresses=",
                         "-c", "max_connections=200"],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        while subprocess.run([self.programs / "pg_isready", "-q", "-h", folder]).returncode != 0:
            time.sleep(0.1)
        self.address = f"host={folder} dbname=postgres user=vantrel"

    def run(self, command):
        subprocess.run(self.user + command, check=True, stdout=subprocess.DEVNULL)

    def ask(self, sql):
        """The lines of a result, with "|" between columns."""
        words = ["psql", "-X", "-A", "-t", "-c", sql, self.address]
        return subprocess.run(words, check=True, capture_output=True, text=True).stdout.split("\n")[:-1]

    def end(self):
        self.process.terminate()
        self.process.wait(30)


def join(folder, keys, changes=()):
    """Lets a program folder answer its hosts and have these keys of the section "Store" alone, if any.
    @param changes  pairs of an expression and what stands in its place in the settings"""
    settings = folder / "Vantrel 6.ini"
    text = settings.read_bytes().decode("cp1252")
    text = re.sub(r"\[Store\].*?(?=^\[|\Z)", "", text, flags=re.DOTALL | re.MULTILINE)
    text = text.replace("[Station]\r\n", "[Station]\r\nAnswerHost=True\r\n", 1)
    for expression, replacement in changes:
        text = re.sub(expression, replacement, text)
    if keys:
        text += "\r\n[Store]\r\n" + "".join(f"{key}={value}\r\n" for key, value in keys.items())
    settings.write_bytes(text.encode("cp1252"))
