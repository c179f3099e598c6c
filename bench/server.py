"""A PostgreSQL server for measurements."""

import os
import pathlib
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
