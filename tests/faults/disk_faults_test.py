#!/usr/bin/env python3
"""Drives while the disk fills up or becomes read-only.

usage: disk_faults_test.py PROGRAM [unittest arguments]
"""

import os
import shutil
import subprocess

from fault_case import FaultCase, run_tests

NOT_KEPT_NOW = "this drive cannot be kept at present: "


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
        self.assertRegex(said, r"positions of this drive that were not kept: [1-9]")
        self.assertRegex(said, r"(no track written|is not complete): the disk of .* is full")
        self.assertIn("settings were not kept", said)
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
    """A disk that fails, and is made read-only by the system."""

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
        device = os.stat(self.disk).st_dev
        block = "/sys/dev/block/%d:%d" % (os.major(device), os.minor(device))
        name = os.path.basename(os.path.realpath(block))
        trigger = "/sys/fs/ext4/%s/trigger_fs_error" % name
        if not os.path.exists(trigger):
            self.skipTest("the system cannot simulate a failing disk")
        with open(trigger, "w", encoding="ascii") as file:
            file.write("test")

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
        self.assertRegex(said, r"positions of this drive that were not kept: [1-9]")
        # Linux 6.14 and later answer that such a folder may be written.
        self.assertRegex(said, r"no track written: .*(Read-only file system|failed)\n")
        self.assertIn("settings were not kept", said)
        subprocess.run(["umount", self.disk], check=True)
        subprocess.run(["mount", *self.mounting, self.disk], check=True)
        self.check_database()
        self.check_whole(self.seconds_kept())
        self.assertEqual(self.seconds_kept()[:len(kept)], kept)
        self.assertIn("Address=+111", self.settings())


if __name__ == "__main__":
    run_tests()
