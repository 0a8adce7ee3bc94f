#!/usr/bin/env python3
"""A user of ferolin-host's window: real clicks and keys (XTEST) on a real window (Xvfb).

usage: application_window_test.py PROGRAM [unittest arguments]
"""

import json
import os
import pty
import re
import signal
import subprocess
import time
import tty
import urllib.request

from program_test_case import PATIENCE, ProgramTestCase, run_tests

from nmea import sentence
from x_screen import XScreen

# A window that is as large as the screen, high enough for all rows of a page.
WIDTH, HEIGHT = 240, 700
HEADER, ROW = 48, 48
WRITE_TRACK, THEME, PICTURE, QUIT = 6, 9, 4, 11
MIRROR = 0
GEAR_X, CLOSE_X, BUTTON_Y = 150, 210, 25
ORANGE = (255, 132, 41)
HEADER_LINE = (0x4A, 0x60, 0x78)
LIGHT = 0xC0
POSITION = sentence("GPRMC,120000,A,4807.038,N,01131.000,E,030.0,084.4,230324,,").encode()


class Screen(XScreen):
    def is_mirrored(self):
        """On a dial that is not mirrored the orange end of the scale is at the right."""
        places = [index % WIDTH for index, pixel in enumerate(self.pixels()) if pixel == ORANGE]
        return sum(x < WIDTH // 2 for x in places) > len(places) / 2

    def shows(self):
        """The corner of a view, and of the empty screen, is black; that of a page is not."""
        return "page" if any(self.corner()) else "view"


class ApplicationWindow(ProgramTestCase):
    def setUp(self):
        super().setUp()
        self.open_screen(WIDTH, HEIGHT)

    def open_screen(self, width, height):
        pixels = self.path(f"screen{width}x{height}")
        os.mkdir(pixels)
        self.screen = Screen(pixels, width, height)
        self.addCleanup(self.screen.close)

    def start(self, *arguments, window=("--fullscreen", "--size", f"{WIDTH}x{HEIGHT}")):
        process = subprocess.Popen(
            self.command("--window", *window, *arguments),
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, encoding="utf-8",
            env=self.environment(DISPLAY=self.screen.name, SDL_VIDEODRIVER="x11"))
        self.addCleanup(process.stderr.close)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        self.process = process
        return process

    @staticmethod
    def comes(is_so, seconds):
        deadline = time.monotonic() + seconds
        while not is_so():
            if time.monotonic() > deadline:
                return False
            time.sleep(0.02)
        return True

    def wait_until(self, is_so, what):
        def has_ended():
            return self.process.poll() is not None

        self.assertTrue(self.comes(lambda: is_so() or has_ended(), PATIENCE), what)
        if has_ended():
            self.fail(f"{what}: the program has ended: {self.process.stderr.read()}")

    def await_page(self):
        self.wait_until(lambda: self.screen.shows() == "page", "no page")

    def await_view(self):
        self.wait_until(lambda: self.screen.shows() == "view", "no view")

    def open_settings(self):
        """The first click may just bring the buttons back."""
        self.await_title("simulated drive")
        self.await_view()

        def is_open():
            self.screen.click(GEAR_X, BUTTON_Y)
            return self.comes(lambda: self.screen.shows() == "page", 1)

        self.wait_until(is_open, "no page")

    def await_title(self, text):
        def is_there():
            result = subprocess.run(["xdotool", "search", "--name", text], capture_output=True, check=False,
                                    env=self.screen.environment)
            return result.stdout.strip() != b""

        self.wait_until(is_there, "no title")

    def click_row(self, row):
        self.screen.click(WIDTH // 2, HEADER + row * ROW + ROW // 2)

    def click_back(self):
        self.screen.click(24, 24)

    def await_end(self, process):
        self.assertEqual(process.wait(PATIENCE), 0)
        return process.stderr.read()

    def test_what_is_chosen_by_touch_is_kept(self):
        process = self.start("--new-trip")
        self.open_settings()
        self.click_row(THEME)
        self.wait_until(lambda: min(self.screen.corner()) > LIGHT, "not light")
        self.click_row(WRITE_TRACK)
        self.click_row(PICTURE)
        self.click_row(MIRROR)
        self.click_back()
        self.click_row(QUIT)
        self.assertIn("track written to %s/Tracks/Track" % self.home, self.await_end(process))
        for kept in ("Mirror=1", "WriteTrack=1", "LightTheme=1"):
            self.assertIn(kept, self.settings())

        process = self.start()
        self.await_title("simulated drive")
        self.await_view()
        self.wait_until(self.screen.is_mirrored, "not mirrored")
        self.open_settings()
        self.assertGreater(min(self.screen.corner()), LIGHT)
        self.click_back()
        self.await_view()
        self.screen.click(CLOSE_X, BUTTON_Y)
        self.assertIn("track written", self.await_end(process))
        self.assertIn("Mirror=1", self.settings())

    def test_keeps_its_size_whatever_browsers_ask_for(self):
        process = self.start("--web", "127.0.0.1:0")
        address = re.search(r"http://\S+/", process.stderr.readline()).group()
        touch = json.dumps({"type": "fit", "width": 400, "height": 300, "dpi": 96}).encode()
        with urllib.request.urlopen(address + "events?views=1", timeout=PATIENCE) as stream:
            self.assertFalse(self.await_event(stream, "hello")["may_fit"])
            request = urllib.request.Request(address + "views/input", touch, {"Content-Type": "application/json"})
            urllib.request.urlopen(request, timeout=PATIENCE).close()
            # The picture of the touch comes before the next two.
            for _ in range(3):
                view = self.await_event(stream, "view")
                self.assertEqual((view["width"], view["height"]), (WIDTH, HEIGHT))
        self.screen.key("q")
        self.await_end(process)

    @staticmethod
    def await_event(stream, name):
        for line in stream:
            if line.decode().strip() == "event: " + name:
                return json.loads(stream.readline()[len("data: "):])
        raise AssertionError("the stream has ended")

    def test_the_command_line_s_choices_come_first(self):
        process = self.start("--mirror")
        self.open_settings()
        self.click_row(PICTURE)
        self.click_row(MIRROR)
        self.screen.key("q")
        self.await_end(process)
        self.assertIn("Mirror=0", self.settings())

    def test_waits_for_a_receiver_with_a_page(self):
        receiver, device = pty.openpty()
        self.addCleanup(os.close, receiver)
        self.addCleanup(os.close, device)
        tty.setraw(device)
        process = self.start("--port", os.ttyname(device))
        self.await_page()

        def is_view():
            os.write(receiver, POSITION)
            return self.screen.shows() == "view"

        self.wait_until(is_view, "no view")
        self.screen.key("Return")
        self.await_page()
        self.screen.key("Escape")
        self.await_view()
        self.screen.key("Escape")
        self.await_end(process)

    def test_sleeps_while_nothing_happens(self):
        receiver, device = pty.openpty()
        self.addCleanup(os.close, receiver)
        self.addCleanup(os.close, device)
        process = self.start("--port", os.ttyname(device))
        self.await_page()

        def wakes():
            with open(f"/proc/{process.pid}/status", encoding="utf-8") as file:
                return int(next(line for line in file if line.startswith("voluntary_ctxt")).split()[1])

        before = wakes()
        time.sleep(2)
        # Looking at a display 60 times a second would be 120.
        self.assertLess(wakes() - before, 60)
        process.send_signal(signal.SIGTERM)
        self.await_end(process)

    def test_a_second_start_brings_the_window_to_the_front(self):
        self.start("--invert")
        self.wait_until(lambda: min(self.screen.corner()) > LIGHT, "no view")
        first_home, self.home = self.home, self.path("other")
        self.start()
        self.wait_until(lambda: max(self.screen.corner()) < LIGHT, "not covered")
        self.home = first_home
        result = self.run_host("--window", DISPLAY=self.screen.name, SDL_VIDEODRIVER="x11")
        self.assertEqual((result.returncode, result.stderr),
                         (0, "ferolin-host: ferolin-host runs in the folder %s already: its window comes to the front\n"
                          % self.home))
        self.wait_until(lambda: min(self.screen.corner()) > LIGHT, "still covered")
        # Who wants no window is refused as ever.
        result = self.run_host("--no-window", DISPLAY=self.screen.name, SDL_VIDEODRIVER="x11")
        self.assertEqual(result.returncode, 1)
        self.assertIn("another ferolin-host uses the folder", result.stderr)

    def resize(self, width, height):
        self.screen.do("search", "--name", " - Ferolin", "windowmove", 0, 0, "windowsize", width, height)

    def await_page_of(self, width, scale):
        """Its header reaches from side to side; below it the page is drawn in the same scale."""
        line = HEADER * scale - 1
        self.wait_until(lambda: self.screen.pixels_at((0, line), (width - 1, line)) == [HEADER_LINE] * 2,
                        "no page of that size")

    def await_view_of(self, width, height):
        """An inverted view is light in all corners."""
        corners = [(x, y) for x in (0, width - 1) for y in (0, height - 1)]
        self.wait_until(lambda: all(min(pixel) > LIGHT for pixel in self.screen.pixels_at(*corners)),
                        "no view of that size")

    def test_fills_a_new_size_with_new_pixels(self):
        width, height = 640, 400
        self.open_screen(width, height)
        receiver, device = pty.openpty()
        self.addCleanup(os.close, receiver)
        self.addCleanup(os.close, device)
        tty.setraw(device)
        process = self.start("--port", os.ttyname(device), "--invert", window=("--size", "240x320"))
        self.await_title("Waiting for positions")
        self.resize(240, 320)
        self.await_page_of(240, 1)
        self.resize(width, height)
        self.await_page_of(width, 2)

        def is_view():
            os.write(receiver, POSITION)
            return min(self.screen.corner()) > LIGHT

        self.wait_until(is_view, "no view")
        self.await_view_of(width, height)
        self.resize(240, 320)
        self.await_view_of(240, 320)
        self.screen.key("f")
        self.await_view_of(width, height)

        self.screen.key("Return")
        self.await_page_of(width, 2)
        # At the edge of the arrow back, where a smaller page would have its first row.
        self.screen.click(70, 70)
        self.await_view_of(width, height)
        process.send_signal(signal.SIGTERM)
        self.await_end(process)


if __name__ == "__main__":
    run_tests()
