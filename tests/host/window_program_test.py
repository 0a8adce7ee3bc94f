#!/usr/bin/env python3
"""Runs ferolin-host with pictures and windows and looks at what it draws.

usage: window_program_test.py PROGRAM [unittest arguments]
"""

import os
import signal
import struct
import subprocess
import time
import zlib

from program_test_case import PATIENCE, ProgramTestCase, run_tests

GAP = (0x60, 0x60, 0x60)


def read_png(path):
    """Width and rows of (r, g, b) of an 8-bit RGB picture."""
    with open(path, "rb") as file:
        data = file.read()
    assert data[:8] == b"\x89PNG\r\n\x1a\n"
    offset, packed = 8, b""
    while offset < len(data):
        size, kind = struct.unpack(">I4s", data[offset:offset + 8])
        body = data[offset + 8:offset + 8 + size]
        if kind == b"IHDR":
            width, height, depth, colors = struct.unpack(">IIBB", body[:10])
            assert (depth, colors) == (8, 2)
        elif kind == b"IDAT":
            packed += body
        offset += size + 12
    raw, stride = zlib.decompress(packed), width * 3
    rows, above = [], bytearray(stride)
    for y in range(height):
        start = y * (stride + 1)
        line = unfilter(raw[start], bytearray(raw[start + 1:start + 1 + stride]), above)
        rows.append([tuple(line[x:x + 3]) for x in range(0, stride, 3)])
        above = line
    return width, rows


def unfilter(kind, line, above):
    for i, value in enumerate(line):
        left = line[i - 3] if i >= 3 else 0
        up = above[i]
        corner = above[i - 3] if i >= 3 else 0
        if kind == 1:
            value += left
        elif kind == 2:
            value += up
        elif kind == 3:
            value += (left + up) // 2
        elif kind == 4:
            value += min((left, up, corner), key=lambda each: abs(left + up - corner - each))
        line[i] = value & 0xFF
    return line


def count_lit(rows):
    return sum(pixel not in ((0, 0, 0), GAP) for row in rows for pixel in row)


class WindowTest(ProgramTestCase):
    def run_host(self, *arguments, status=0, **environment):
        result = super().run_host(*arguments, **environment)
        self.assertEqual(result.returncode, status, result.stderr)
        return result

    def shoot(self, *arguments):
        """The picture of the 120th second of a fresh trip."""
        file = self.path("shot.png")
        self.run_host("--new-trip", "--updates", "120", "--size", "320x240", "--shot", file,
                      *arguments)
        return read_png(file)[1]


class Pictures(WindowTest):
    def test_a_shot_has_the_size_asked_for(self):
        file = self.path("a.png")
        self.run_host("--updates", "50", "--size", "240x320", "--shot", file)
        width, rows = read_png(file)
        self.assertEqual((width, len(rows)), (240, 320))
        self.assertGreater(count_lit(rows), 1000)

    def test_figures_fill_the_picture(self):
        self.assertEqual(self.shoot("--dpi", "auto"), self.shoot("--dpi", "96"))
        large = ["--size", "640x480", "--view", "dial"]
        small = count_lit(self.shoot(*large, "--dpi", "96"))
        self.assertGreater(count_lit(self.shoot(*large)), 1.5 * small)
        self.assertEqual(self.shoot(*large), self.shoot(*large, "--dpi", "192"))

    def test_flags_turn_the_picture(self):
        plain = self.shoot()
        self.assertEqual(self.shoot("--mirror"), [row[::-1] for row in plain])
        self.assertEqual(self.shoot("--no-mirror", "--flip"), plain[::-1])
        inverted = self.shoot("--no-flip", "--invert")
        self.assertEqual(inverted, [[tuple(255 - c for c in pixel) for pixel in row]
                                    for row in plain])
        self.assertNotEqual(self.shoot("--no-invert", "--rotate"), plain)
        self.assertEqual(self.shoot("--no-rotate"), plain)

    def test_the_picture_is_kept_for_the_next_run(self):
        mirrored = self.shoot("--mirror", "--view", "Speed")
        self.assertIn("Mirror=1", self.settings())
        self.assertIn("View=1", self.settings())
        self.assertEqual(self.shoot(), mirrored)

    def test_every_update_has_its_frame(self):
        folder = self.path("frames")
        self.run_host("--updates", "12", "--size", "240x320", "--frames", folder)
        names = sorted(os.listdir(folder))
        self.assertEqual(names, ["frame%06d.png" % number for number in range(1, 13)])
        for name in names:
            self.assertGreater(count_lit(read_png(os.path.join(folder, name))[1]), 1000, name)

    def test_a_contact_sheet_shows_all_views_both_ways_with_buttons_and_without(self):
        file = self.path("sheet.png")
        self.run_host("--contact-sheet", file)
        width, rows = read_png(file)
        self.assertEqual(width, 2 * 240 + 2 * 320 + 5 * 12)
        views, rest = divmod(len(rows) - 12, 332)
        self.assertEqual(rest, 0)
        self.assertGreaterEqual(views, 2)
        # Portrait and landscape, each with buttons and without.
        places = (((12, 264), 240, 320), ((516, 848), 320, 240))
        for view in range(views):
            top = 12 + view * 332
            for lefts, across, down in places:
                bars = []
                for left in lefts:
                    part = [row[left:left + across] for row in rows[top:top + down]]
                    self.assertGreater(count_lit(part), 1000, (view, left))
                    # The edge of a button on the side of the arrows.
                    edge = [row[:54] for row in part[-52:]] if across < down \
                        else [row[-52:] for row in part[60:170]]
                    bars.append([pixel for row in edge for pixel in row])
                differing = sum(a != b for a, b in zip(*bars))
                self.assertGreater(differing, 2000, (view, lefts))

    def test_says_what_is_wrong(self):
        result = self.run_host("--view", "Bogus", "--shot", self.path("a.png"), status=2)
        self.assertIn("Speedometer", result.stderr)
        result = self.run_host("--updates", "5", "--shot", "/nonexistent/a.png", status=1)
        self.assertIn("/nonexistent/a.png", result.stderr)
        self.assertNotIn("updates in", result.stderr, "it is refused at the start")
        result = self.run_host("--updates", "5", "--shot", self.folder, status=1)
        self.assertIn("cannot write %s: Is a directory" % self.folder, result.stderr)
        result = self.run_host("--contact-sheet", "/nonexistent/s.png", status=1)
        self.assertIn("cannot write /nonexistent/s.png: No such file", result.stderr)
        result = self.run_host("--updates", "5", "--frames", "/proc/frames", status=1)
        self.assertIn("/proc/frames", result.stderr)
        result = self.run_host("--updates", "5", "--contact-sheet", self.path("s.png"), status=1)
        self.assertIn("contact sheet", result.stderr)


class Window(WindowTest):
    def test_opens_when_there_is_a_display_and_says_nothing_else(self):
        result = self.run_host("--updates", "20", "--rate", "20", SDL_VIDEODRIVER="dummy")
        self.assertEqual(result.stdout, "")
        self.assertIn("20 updates", result.stderr)

    def test_is_not_opened_on_request(self):
        result = self.run_host("--updates", "20", "--no-window", SDL_VIDEODRIVER="dummy")
        self.assertIn("GPS status", result.stdout)

    def test_goes_with_json_when_both_are_wanted(self):
        result = self.run_host("--updates", "3", "--rate", "20", "--json", "--window",
                               SDL_VIDEODRIVER="dummy")
        self.assertEqual(len(result.stdout.splitlines()), 4)

    def test_a_display_that_fails_leaves_the_text(self):
        result = self.run_host("--updates", "3", SDL_VIDEODRIVER="x11", DISPLAY=":987")
        self.assertIn("no window is opened", result.stderr)
        self.assertIn("GPS status", result.stdout)
        self.run_host("--updates", "3", "--window", status=1, SDL_VIDEODRIVER="x11",
                      DISPLAY=":987")

    def test_drawing_into_memory_is_no_window(self):
        result = self.run_host("--updates", "3", "--window", status=1, SDL_VIDEODRIVER="offscreen")
        self.assertIn("cannot open a window: there is no display", result.stderr)

    def test_ends_on_a_signal_and_keeps_its_settings(self):
        with subprocess.Popen(self.command("--invert"), stdin=subprocess.DEVNULL,
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                              env=self.environment(SDL_VIDEODRIVER="dummy")) as process:
            time.sleep(1.5)
            process.send_signal(signal.SIGINT)
            self.assertEqual(process.wait(PATIENCE), 0)
        self.assertIn("Invert=1", self.settings())


if __name__ == "__main__":
    run_tests()
