#!/usr/bin/env python3
"""Ends the program without warning, at random moments, and looks at what the next start finds.

usage: sudden_end_faults_test.py PROGRAM [unittest arguments]

FEROLIN_SEED repeats a series of moments.
"""

import os
import random
import re
import signal
import time

from fault_case import IS_THOROUGH, FaultCase, run_tests
from forgetful_disk import ForgetfulDisk

KILLS = 50 if IS_THOROUGH else 5
POWER_CUTS = 10 if IS_THOROUGH else 2
# What is promised.
MOST_LOST_S = 3
METRES_PER_SECOND = 10
SEED = int(os.environ.get("FEROLIN_SEED", time.time_ns() % 1000000))


class SuddenEnd(FaultCase):
    """Drives again and again; each drive is cut off."""

    def setUp(self):
        super().setUp()
        self.random = random.Random(SEED)
        result = self.run_host("--sms-to", "+111", "--updates", "1")
        self.assertEqual(result.returncode, 0, result.stderr)
        # The seconds of each kept drive, by its number.
        self.kept = {}
        # Metres that the trip must have, and can have at most.
        self.shortest_trip = 0
        self.longest_trip = 0

    def cut_off(self, longest_s, shortest_s=0, **environment):
        """Drives for a while. Returns receiver, host and the moment at which it was cut off."""
        open_drives = len(self.query("SELECT number FROM drives WHERE end_ms IS NULL"))
        receiver = self.plug_in()
        host = self.start_drive(**environment)
        if shortest_s > 0:
            self.wait_until(lambda: host.first_second() is not None, host.said)
        time.sleep(self.random.uniform(shortest_s, longest_s))
        if self.random.random() < 0.3:
            # While it ends.
            host.process.send_signal(signal.SIGTERM)
            time.sleep(self.random.uniform(0, 0.1))
        cut = host.kill()
        self.pull(receiver)
        if host.shown():
            self.assertEqual(host.said().count("ended without warning at"), open_drives,
                             host.said())
            self.check_trip(host)
        return receiver, host, cut

    def check_trip(self, host):
        """The trip goes on where the drives were cut off, or at most as long before as promised."""
        found = re.search(r"continuing the trip of the last run, ([\d.]+) (k?m) ", host.said())
        trip = float(found[1]) * (1000 if found[2] == "km" else 1) if found else 0
        # The message is rounded to three figures.
        self.assertGreaterEqual(trip * 1.005 + 1, self.shortest_trip, host.said())
        self.assertLessEqual(trip * 0.995 - 1, self.longest_trip, host.said())

    def check_what_is_left(self, receiver, host, cut):
        """Nothing but the last seconds of the last drive is lost."""
        self.check_database()
        for drive, seconds in self.kept.items():
            self.assertEqual(self.seconds_kept(drive), seconds, "drive %d" % drive)
        self.assertIn("Address=+111", self.settings())
        new = [number for number, in self.query("SELECT number FROM drives")
               if number not in self.kept]
        self.assertLessEqual(len(new), 1)
        for number in new:
            self.kept[number] = self.seconds_kept(number)
            self.check_whole(self.kept[number])
        first = host.first_second()
        must_have = receiver.last_second_before(cut - MOST_LOST_S)
        if first is None:
            return
        self.shortest_trip += max(0, must_have - first) * METRES_PER_SECOND
        self.longest_trip += (receiver.next_second - first) * METRES_PER_SECOND
        if must_have >= first:
            self.assertEqual(len(new), 1, host.said())
            self.assertLessEqual(self.kept[new[0]][0], first)
            self.assertGreaterEqual(self.kept[new[0]][-1], must_have, host.said())

    def check_next_start(self):
        result = self.run_host("--sms-to", "+222", "--updates", "1")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertIn("Address=+222", self.settings())
        listed = self.run_host("drives")
        self.assertEqual(listed.returncode, 0, listed.stderr)
        self.assertEqual(len(listed.stdout.splitlines()) - 1, len(self.kept))

    def longest(self, turn):
        """Many short drives; those that are long enough for kept positions take their time."""
        return 6 if turn % 5 == 2 else 1


class Kill(SuddenEnd):
    def test_at_random_moments_loses_nothing_that_was_kept(self):
        for turn in range(KILLS):
            with self.subTest(turn=turn, seed=SEED):
                self.check_what_is_left(*self.cut_off(self.longest(turn)))
        self.check_next_start()


class PowerCut(SuddenEnd):
    """The disk forgets all that was not synced."""

    def test_at_random_moments_loses_nothing_that_was_kept(self):
        disk = ForgetfulDisk(self.home, self.path("memory"))
        for turn in range(POWER_CUTS):
            with self.subTest(turn=turn, seed=SEED):
                # Each drive is long enough for something that must be kept.
                drive = self.cut_off(7, MOST_LOST_S + 1, **disk.environment)
                disk.cut_power()
                self.check_what_is_left(*drive)
        self.check_next_start()

    def test_settings_that_were_saved_stay(self):
        disk = ForgetfulDisk(self.home, self.path("memory"))
        result = self.run_host("--sms-to", "+333", "--updates", "1", **disk.environment)
        self.assertEqual(result.returncode, 0, result.stderr)
        disk.cut_power()
        self.assertIn("Address=+333", self.settings())

    def test_the_disk_forgets(self):
        """Without this the other test would say nothing."""
        disk = ForgetfulDisk(self.home, self.path("memory"))
        before = self.settings()
        with open(os.path.join(self.home, "TachyMo.ini"), "w", encoding="ascii") as file:
            file.write("lost")
        os.mkdir(os.path.join(self.home, "new"))
        disk.cut_power()
        self.assertEqual(self.settings(), before)
        self.assertNotIn("new", os.listdir(self.home))


if __name__ == "__main__":
    run_tests()
