#!/usr/bin/env python3
"""A new user of Ferolin.exe on a screen: chooses port and rate with the mouse, sees the speed, sets a limit, mirrors the
picture, quits, and finds all of it kept. Real clicks (XTEST) on a real window (Xvfb, Wine's X11 driver).

usage: in-wine <folder> window_test.py <folder with Ferolin.exe and Ferolin.dll>
"""
import os
import pathlib
import shutil
import socket
import subprocess
import sys
import tempfile
import time
import unittest

TOP = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(1, str(TOP / "tests/support"))
from nmea import sentence  # noqa: E402
from x_screen import XScreen  # noqa: E402

WIDTH, HEIGHT = 240, 700
HEADER, ROW, GAP = 48, 48, 12
WAITING_RECEIVER = 2
SERIAL, PORT, BAUD_RATE = 1, 3, 4
LIMITS, PICTURE, QUIT = 0, 4, 11
DAY = 7
PATIENCE_S = 60
POSITION = sentence("GPRMC,120000,A,4807.038,N,01131.000,E,030.0,084.4,230324,,").encode()


class Screen(XScreen):
    def shows(self):
        """What lies in the upper left corner.

        A "view" is black or by day nearly white, a "page" dark grey, the "desktop" a strong blue.
        """
        red, green, blue = self.corner()
        is_view = red == green == blue and (red == 0 or red > 0xE0)
        return "view" if is_view else "page" if blue < 0x40 else "desktop"


class Line:
    """The far end of a serial line, whose near end is COM1."""

    def __init__(self):
        self.connection = socket.create_connection(("127.0.0.1", int(os.environ["FEROLIN_TEST_LINES"])))
        self.answers = self.connection.makefile()
        port = pathlib.Path(os.environ["WINEPREFIX"], "dosdevices/com1")
        port.unlink(missing_ok=True)
        port.symlink_to(self.answers.readline().strip())

    def close(self):
        self.answers.close()
        self.connection.close()

    def send(self, content):
        self.connection.sendall(f"send {len(content)}\n".encode() + content)
        self.answers.readline()

    def baud_rate(self):
        self.connection.sendall(b"baud\n")
        return int(self.answers.readline())


def wine(*command):
    return [os.environ["WINELOADER"], *command]


def choose_driver(name):
    subprocess.run(wine("reg", "add", r"HKCU\Software\Wine\Drivers", "/v", "Graphics", "/d", name, "/f"), check=True,
                   capture_output=True)


class WindowTest(unittest.TestCase):
    parts = None

    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        program = self.folder / "Ferolin"
        program.mkdir()
        for name in ("Ferolin.exe", "Ferolin.dll"):
            shutil.copy(self.parts / name, program)
        for name in ("Pics", "Wav", "themes"):
            shutil.copytree(TOP / "assets" / name, program / name, ignore=shutil.ignore_patterns("4x"))
        shutil.copy(TOP / "assets/lcd-u.ttf", program)
        self.settings_file = program / "TachyMo.ini"
        self.screen = Screen(self.folder, WIDTH, HEIGHT)
        self.addCleanup(self.screen.close)
        choose_driver("x11")
        self.addCleanup(choose_driver, "null")
        self.line = Line()
        self.addCleanup(self.line.close)

    def settings_time(self):
        """When the settings that hold the program's were written; 0 without any."""
        is_complete = self.settings_file.exists() and b"Mirror=" in self.settings_file.read_bytes()
        return self.settings_file.stat().st_mtime_ns if is_complete else 0

    def start(self):
        self.time_before = self.settings_time()
        desktop = subprocess.Popen(
            wine("explorer.exe", f"/desktop=ferolin,{WIDTH}x{HEIGHT}", str(self.folder / "Ferolin/Ferolin.exe")),
            env=self.screen.environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(desktop.wait)
        self.addCleanup(desktop.kill)
        # The server's screen is black before the desktop comes.
        self.wait_until(lambda: self.screen.shows() == "page", "no window")

    def await_end(self):
        """The program writes its settings last."""
        self.wait_until(lambda: self.screen.shows() == "desktop", "the window stays")
        self.wait_until(lambda: self.settings_time() > self.time_before, "no settings")
        return self.settings_file.read_text(encoding="latin-1")

    def wait_until(self, is_so, what):
        deadline = time.monotonic() + PATIENCE_S
        while not is_so():
            self.assertLess(time.monotonic(), deadline, what)
            time.sleep(0.05)

    def await_view(self):
        def is_view():
            self.line.send(POSITION)
            return self.screen.shows() == "view"

        self.wait_until(is_view, "no view")

    def click_row(self, row, gaps_before=0):
        self.screen.click(WIDTH // 2, HEADER + (row - gaps_before) * ROW + gaps_before * GAP + ROW // 2)

    def click_back(self):
        self.screen.click(24, 24)

    def test_is_set_up_by_mouse_and_keeps_it(self):
        self.start()
        self.click_row(WAITING_RECEIVER, 1)
        self.click_row(SERIAL)
        self.click_row(PORT, 1)
        self.click_row(0)
        self.click_back()
        self.click_row(BAUD_RATE, 1)
        self.click_row(0)
        self.click_back()
        self.click_back()
        self.wait_until(lambda: self.line.baud_rate() == 4800, "port not opened")
        self.await_view()
        self.screen.key("Return")
        self.click_row(LIMITS)
        self.click_row(0)
        self.screen.click(WIDTH - 33, HEADER + ROW + ROW // 2)  # "+" of the limit
        self.click_back()
        self.click_row(PICTURE)
        self.click_row(0)
        self.click_row(DAY)
        self.click_back()
        self.click_row(QUIT)
        settings = self.await_end()
        for kept in ("Port=COM1", "BaudRate=4800", "UseGpsApi=0", "Mirror=1", "Limit1=65", "UseSound1=true",
                     "ThemeTaken=day", "PathColor=11534336"):
            self.assertIn(kept, settings)

        self.start()
        self.await_view()
        self.screen.key("q")
        settings = self.await_end()
        for kept in ("Mirror=1", "Limit1=65", "UseSound1=true", "PathColor=11534336"):
            self.assertIn(kept, settings)


if __name__ == "__main__":
    WindowTest.parts = pathlib.Path(sys.argv[1])
    unittest.main(argv=sys.argv[:1])
