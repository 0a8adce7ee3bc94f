"""The comparison of drawings notices a single pixel.

usage: compare_test.py <drawing-scenes>
"""
import pathlib
import struct
import subprocess
import sys
import tempfile
import unittest
import zlib

COMPARE = pathlib.Path(__file__).with_name("compare")
SCENES = pathlib.Path(sys.argv.pop(1)).resolve()


def png_pixels(path):
    """Rows of a picture with three bytes a pixel and unfiltered rows."""
    data = path.read_bytes()
    width, height = struct.unpack(">II", data[16:24])
    start = data.index(b"IDAT") + 4
    rows = zlib.decompress(data[start:data.index(b"IEND") - 8])
    return [rows[row * (3 * width + 1) + 1:(row + 1) * (3 * width + 1)] for row in range(height)]


class CompareTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def compare(self, one, *other):
        return subprocess.run([COMPARE, self.folder / "result", one, "--", *other], stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, text=True, check=False)

    def home(self, *lines):
        """A home that draws nothing but tells of these pictures."""
        program = self.folder / f"home{len(list(self.folder.iterdir()))}"
        program.write_text("#!/bin/sh\n" + "".join(f"echo {line} >>\"$1/scenes.txt\"\n" for line in lines))
        program.chmod(0o755)
        return program

    def test_one_changed_pixel_fails_and_is_shown(self):
        result = self.compare(SCENES, SCENES, "--spoil", "view1-5-back")
        self.assertEqual(1, result.returncode, result.stderr)
        first, last = result.stdout.splitlines()
        self.assertEqual("view1-5-back: 1 pixel differs", first)
        self.assertRegex(last, r"^1 of \d{5} pictures differ")

        pictures = [png_pixels(self.folder / "result" / f"view1-5-back.{part}.png")
                    for part in ("one", "other", "difference")]
        differing = [(x, y) for y, rows in enumerate(zip(*pictures[:2])) for x in range(len(rows[0]) // 3)
                     if rows[0][3 * x:3 * x + 3] != rows[1][3 * x:3 * x + 3]]
        marked = [(x, y) for y, row in enumerate(pictures[2]) for x in range(len(row) // 3) if any(row[3 * x:3 * x + 3])]
        self.assertEqual(1, len(differing))
        self.assertEqual(differing, marked)

    def test_the_same_pictures_pass(self):
        result = self.compare(self.home("thin-0 1 2", "thin-1 3 4"), self.home("thin-0 1 2", "thin-1 3 4"))
        self.assertEqual(0, result.returncode, result.stderr)
        self.assertIn("2 pictures are the same", result.stdout)

    def test_a_picture_less_fails(self):
        result = self.compare(self.home("thin-0 1 2", "thin-1 3 4"), self.home("thin-1 3 4"))
        self.assertEqual(1, result.returncode)
        self.assertIn("thin-0: drawn on one home only", result.stdout)

    def test_no_pictures_at_all_fail(self):
        self.assertNotEqual(0, self.compare(self.home(), self.home()).returncode)

    def test_a_home_that_fails_fails(self):
        self.assertNotEqual(0, self.compare(self.home("thin-0 1 2"), "/bin/false").returncode)


if __name__ == "__main__":
    unittest.main()
