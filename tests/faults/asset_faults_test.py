#!/usr/bin/env python3
"""Runs with pictures and fonts that are missing or broken.

usage: asset_faults_test.py PROGRAM [unittest arguments]
"""

import os
import shutil

from fault_case import IS_THOROUGH, FaultCase, moment, run_tests

VIEWS = 5 if IS_THOROUGH else 1


class Assets(FaultCase):
    """Has a home folder with pictures, sounds and the display font of its own."""

    def setUp(self):
        super().setUp()
        for name in ("Pics", "Wav"):
            shutil.copytree(os.path.join(os.path.dirname(self.program), name),
                            os.path.join(self.home, name))
        self.font = os.path.join(self.home, "lcd-u.ttf")
        shutil.copy(os.path.join(os.path.dirname(self.program), "lcd-u.ttf"), self.font)
        self.pictures = os.path.join(self.home, "Pics")
        self.drive = self.path("drive.nmea")
        with open(self.drive, "w", encoding="ascii") as file:
            file.write("".join(moment(3600 + second) for second in range(11)))
        self.readouts = self.play()[0]

    def play(self, view=0, **environment):
        """Returns the read-outs, and the last frame as a file."""
        frame = self.path("frame.png")
        if os.path.exists(frame):
            os.remove(frame)
        result = self.run_host("--nmea", self.drive, "--json", "--new-trip", "--keep",
                               "--sms-to", "+111", "--limit", "30", "--view", str(view),
                               "--shot", frame, **environment)
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertIn("sounds played", result.stderr)
        self.assertIn("kept as drive", result.stderr)
        self.assertIn("Address=+111", self.settings())
        self.messages = result.stderr
        with open(frame, "rb") as file:
            return result.stdout, file.read()

    def for_each_picture(self, change):
        """Without the larger ones, which belong to these."""
        for name in os.listdir(self.pictures):
            if name != "4x":
                change(os.path.join(self.pictures, name))

    def check(self, damaged="", **environment):
        """All views are drawn; read-outs, sounds, drive and settings are as ever. The user is told
        of the damaged file."""
        for view in range(VIEWS):
            readouts, frame = self.play(view, **environment)
            self.assertEqual(self.messages.count("is missing or damaged") > 0, damaged != "")
            self.assertIn(damaged, self.messages)
            self.assertEqual(readouts, self.readouts)
            self.assertTrue(frame.startswith(b"\x89PNG") and frame.endswith(b"IEND\xaeB`\x82"))

    def test_no_pictures(self):
        sound = self.play()[1]
        self.assertNotIn("is missing or damaged", self.messages)
        self.assertNotIn("no fonts are installed", self.messages)
        self.for_each_picture(os.remove)
        self.check("Pics/")
        self.assertNotEqual(self.play()[1], sound)

    def test_no_folder_of_pictures_is_made_up_for(self):
        sound = self.play()[1]
        shutil.rmtree(self.pictures)
        self.assertEqual(self.play()[1], sound)

    def test_broken_pictures(self):
        def halve(path):
            os.truncate(path, os.path.getsize(path) // 2)

        def scramble(path):
            with open(path, "r+b") as file:
                file.seek(40)
                file.write(b"\xff" * 64)

        def overwrite(path):
            with open(path, "wb") as file:
                file.write(b"no picture" * 100)

        def empty(path):
            os.truncate(path, 0)

        def replace_by_folder(path):
            os.remove(path)
            os.mkdir(path)

        for change in (halve, scramble, overwrite, empty, replace_by_folder):
            with self.subTest(change.__name__):
                self.for_each_picture(change)
                self.check("Pics/")

    def test_broken_and_missing_display_font(self):
        for content in (b"", b"no font", os.urandom(20000)):
            with open(self.font, "wb") as file:
                file.write(content)
            self.check("lcd-u.ttf")
        with open(self.font, "wb") as file, \
                open(os.path.join(os.path.dirname(self.program), "lcd-u.ttf"), "rb") as whole:
            file.write(whole.read()[:5000])
        self.check()  # a font still, of fewer glyphs
        os.remove(self.font)
        os.mkdir(self.font)
        self.check("lcd-u.ttf")

    def test_no_fonts_at_all(self):
        os.mkdir(self.path("fonts"))
        configuration = self.path("fonts.conf")
        with open(configuration, "w", encoding="ascii") as file:
            file.write("<fontconfig><dir>%s</dir></fontconfig>" % self.path("fonts"))
        self.check(FONTCONFIG_FILE=configuration)
        self.assertEqual(self.messages.count("no fonts are installed: "), 1)


if __name__ == "__main__":
    run_tests()
