#!/usr/bin/env python3
"""Drives while the disk fills up or becomes read-only.

usage: disk_faults_test.py PROGRAM [unittest arguments]
"""

import os
import shutil
import subprocess

from fault_case import FaultCase, become_root, run_tests

NOT_KEPT_NOW = "this drive cannot be kept at present: "
NOT_WHOLE = r"kept as drive 1, but not whole: \d+ m in [\d:]+; \d+ more positions? could not be written"


class FullDisk(FaultCase):
    def setUp(self):
        super().setUp()
        self.filler = os.path.join(self.mount("-t", "tmpfs", "-o", "size=4m", "tmpfs"), "filler")
        self.receiver = self.plug_in()
        self.host = self.start_drive("--kml", "--sms-to", "+111")
        self.await_positions(1, self.host)

    def fill_disk(self):
        with self.assertRaises(OSError), open(self.filler, "wb", buffering=0) as file:
            while True:
                file.write(bytes(4096))
        self.await_words(self.host, NOT_KEPT_NOW)
        self.assertIn("disk is full", self.host.said())

    def test_what_came_meanwhile_is_kept_when_there_is_space_again(self):
        self.fill_disk()
        kept = len(self.seconds_kept())
        os.remove(self.filler)
        self.await_positions(kept + 1, self.host)
        self.await_words(self.host, "this drive is kept again")
        status, said = self.host.stop()
        self.assertEqual(status, 0, said)
        self.check_whole(self.seconds_kept())
        self.assertEqual(said.count(NOT_KEPT_NOW), 1)
        self.assertIn("kept as drive 1", said)
        self.assertIn("track written to", said)
        self.assertIn("Address=+111", self.settings())

    def test_what_is_lost_is_told(self):
        self.fill_disk()
        kept = self.seconds_kept()
        status, said = self.host.stop()
        self.assertEqual(status, 1, said)
        self.assertRegex(said, NOT_WHOLE)
        self.assertRegex(said, r"(no track written|is not complete): the disk of .* is full")
        self.assertRegex(said, "settings were not kept: the disk of .* is full")
        self.assertNotIn("track written to", said)
        os.remove(self.filler)
        self.assertEqual(self.seconds_kept()[:len(kept)], kept)
        self.check_whole(self.seconds_kept())
        self.check_database()
        # The next drive is kept as if nothing had been.
        before = self.seconds_kept()
        self.host = self.start_drive()
        self.await_words(self.host, "ended without warning at")
        self.await_positions(len(before) + 1, self.host)
        self.assertEqual(self.host.stop()[0], 0)
        self.assertEqual(self.seconds_kept(1), before)


class ReadOnlyDisk(FaultCase):
    """A disk that becomes read-only at once, as the system makes one that fails."""

    def setUp(self):
        super().setUp()
        image = self.path("image")
        with open(image, "wb") as file:
            file.truncate(8 << 20)
        make = shutil.which("mkfs.ext4", path=os.environ["PATH"] + ":/usr/sbin:/sbin")
        if make is None:
            self.skipTest("there is no mkfs.ext4")
        subprocess.run([make, "-q", image], check=True)
        self.mounting = ("-o", "loop,errors=remount-ro", image)
        self.disk = self.mount(*self.mounting)

    def break_disk(self):
        # Without "abort" the system refuses while files are open for writing.
        subprocess.run(["mount", "-o", "remount,abort", self.disk], check=True)

    def test_what_was_kept_before_stays_and_the_loss_is_told(self):
        self.assertEqual(self.run_host("--sms-to", "+111", "--updates", "1").returncode, 0)
        self.plug_in()
        host = self.start_drive("--sms-to", "+222", "--kml")
        self.await_positions(10, host)
        kept = self.seconds_kept()
        self.break_disk()
        self.await_words(host, NOT_KEPT_NOW)
        status, said = host.stop()
        self.assertEqual(status, 1, said)
        self.assertEqual(said.count(NOT_KEPT_NOW), 1)
        self.assertRegex(said, NOT_WHOLE)
        self.assertRegex(said, r"no track written: .*Read-only file system\n")
        self.assertRegex(said, "settings were not kept: .*: Read-only file system")
        subprocess.run(["umount", self.disk], check=True)
        subprocess.run(["mount", *self.mounting, self.disk], check=True)
        self.check_database()
        self.check_whole(self.seconds_kept())
        self.assertEqual(self.seconds_kept()[:len(kept)], kept)
        self.assertIn("Address=+111", self.settings())


if __name__ == "__main__":
    become_root()
    run_tests()
