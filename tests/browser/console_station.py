"""A station with the demo's layouts, its console, and a browser that looks at it."""
import contextlib
import json
import os
import pathlib
import re
import shutil
import signal
import socket
import subprocess
import tempfile
import time

from selenium import webdriver
from selenium.common.exceptions import NoSuchElementException, StaleElementReferenceException
from selenium.webdriver.chrome.options import Options
from selenium.webdriver.chrome.service import Service

# Only ends a test that has failed.
LIMIT = 60


def await_that(holds, told):
    """Waits until `holds()` gives something that is true, and gives it back.

    What `holds()` wants to find may not be there yet, or be replaced before it has looked at it; then it looks again.
    """
    end = time.monotonic() + LIMIT
    while time.monotonic() < end:
        try:
            found = holds()
        except (NoSuchElementException, StaleElementReferenceException):
            found = None
        if found:
            return found
        time.sleep(0.02)
    raise AssertionError(f"waited in vain: {told}")


def free_port():
    with socket.socket() as one:
        one.bind(("127.0.0.1", 0))
        return one.getsockname()[1]


class Station:
    """The built programs on a fresh demo folder."""

    def __init__(self, programs):
        self.programs = pathlib.Path(programs)
        self.scratch = pathlib.Path(tempfile.mkdtemp(prefix="vantrel-console-"))
        self.folder = self.scratch / "station"
        self.port = free_port()
        self.running = []
        environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", VANTREL_HOME=str(self.folder),
                           CUPS_SERVER=str(self.scratch / "no.sock"), XDG_RUNTIME_DIR=str(self.scratch))
        for name in ("DISPLAY", "WAYLAND_DISPLAY"):
            environment.pop(name, None)
        self.environment = environment
        subprocess.run([self.programs / "vantrel-admin", "demo", self.folder], check=True)
        settings = self.folder / "Vantrel 6.ini"
        settings.write_text(re.sub(r"(?m)^Port=\d+", f"Port={self.port}", settings.read_text("cp1252")), "cp1252")
        self.start(["vantrel"], None)
        await_that(self.listens, "the station listens")
        self.start_console(0)
        self.token = await_that(lambda: (self.folder / "Console.token").read_text().strip(), "a token")

    def start(self, words, out):
        process = subprocess.Popen([self.programs / words[0], *words[1:]], stdout=out, env=self.environment)
        self.running.append(process)
        return process

    def listens(self):
        try:
            socket.create_connection(("127.0.0.1", self.port)).close()
            return True
        except OSError:
            return False

    def send(self, *values):
        """Sends a record as a host does."""
        with socket.create_connection(("127.0.0.1", self.port)) as host:
            host.sendall(("<" + "+".join(values) + ">").encode("cp1252"))
            host.shutdown(socket.SHUT_WR)
            host.recv(1000)

    def states(self, text=""):
        """The states of the records that hold a text, newest first."""
        listed = subprocess.run([self.programs / "vantrel-admin", "ledger", "list", self.folder, "--json", "--text", text],
                                check=True, capture_output=True).stdout
        return [entry["state"] for entry in json.loads(listed)["entries"]]

    @contextlib.contextmanager
    def no_place_for_cards(self):
        """Cards have no place to go meanwhile: where their folder was, there is a file."""
        await_that(lambda: not {"received", "printing"} & set(self.states()), "what came before is printed")
        printed, aside = self.folder / "Printed", self.folder / "Printed before"
        # The first card makes it.
        printed.mkdir(exist_ok=True)
        printed.rename(aside)
        printed.write_text("")
        try:
            yield
        finally:
            printed.unlink()
            aside.rename(printed)

    def send_in_vain(self, *values):
        """Sends a record whose card fails."""
        with self.no_place_for_cards():
            self.send(*values)
            await_that(lambda: "failed" in self.states(values[0]), "the card fails")

    @contextlib.contextmanager
    def stopped(self):
        """No station runs meanwhile."""
        self.stop(self.running[0])
        try:
            yield
        finally:
            self.running.insert(0, self.start(["vantrel"], None))
            self.running.pop()
            await_that(self.listens, "the station listens again")

    @contextlib.contextmanager
    def console_away(self):
        """The console does not run meanwhile."""
        self.stop(self.running[-1])
        try:
            yield
        finally:
            self.start_console(int(self.address.strip("/").rsplit(":", 1)[1]))

    def start_console(self, port):
        console = self.start(["vantrel-console", self.folder, "--listen", f"127.0.0.1:{port}"], subprocess.PIPE)
        self.address = re.search(r"http://\S+", console.stdout.readline().decode())[0]

    def stop(self, process):
        self.running.remove(process)
        if process.stdout is not None:
            process.stdout.close()
        process.send_signal(signal.SIGTERM)
        process.wait(LIMIT)

    def end(self):
        for process in self.running:
            process.send_signal(signal.SIGTERM)
        for process in self.running:
            try:
                process.wait(LIMIT)
            except subprocess.TimeoutExpired:
                process.kill()
        shutil.rmtree(self.scratch)


def open_browser(width=1280, height=900, dark=False):
    options = Options()
    for option in ("--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
                   "--force-device-scale-factor=1", "--hide-scrollbars", f"--window-size={width},{height}"):
        options.add_argument(option)
    options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
    browser = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)
    set_screen(browser, width, height, dark)
    return browser


def set_screen(browser, width, height, dark=False):
    """The window of a page is never narrower than 500 dots otherwise."""
    browser.execute_cdp_cmd("Emulation.setDeviceMetricsOverride",
                            {"width": width, "height": height, "deviceScaleFactor": 1, "mobile": False})
    browser.execute_cdp_cmd("Emulation.setEmulatedMedia", {"features": [
        {"name": "prefers-color-scheme", "value": "dark" if dark else "light"},
        {"name": "prefers-reduced-motion", "value": "reduce"}]})
