#!/usr/bin/env python3
"""Drives for two days and looks at what the program holds on to.

usage: long_drive_faults_test.py PROGRAM [unittest arguments]
"""

import os
import subprocess
import sys
import unittest

from fault_case import IS_THOROUGH, PATIENCE, FaultCase, moment, run_tests

HOURS = 48
# Of the engine's track.
BYTES_A_POSITION = 36
# What buffers, the database's cache and the allocator may take more at the end than after an hour.
MARGIN_BYTES = 4 << 20
DATES = ["201126", "211126"]


@unittest.skipUnless(IS_THOROUGH, "takes long")
class LongDrive(FaultCase):
    def setUp(self):
        super().setUp()
        self.process = subprocess.Popen(
            self.command("--nmea", "-", "--rate", "max", "--keep", "--no-window"),
            env=self.environment(), stdin=subprocess.PIPE, stdout=subprocess.DEVNULL,
            stderr=subprocess.PIPE)
        self.addCleanup(self.process.wait)
        self.addCleanup(self.process.stderr.close)
        self.addCleanup(self.process.kill)

    def drive(self, hours):
        """The input waits in a pipe, so that hardly anything of it is unread when this returns."""
        for hour in hours:
            date = DATES[hour // 24]
            text = "".join(moment(hour % 24 * 3600 + second, date) for second in range(3600))
            self.process.stdin.write(text.encode())
            self.process.stdin.flush()

    def held(self):
        """Open files, threads, and bytes of memory."""
        folder = "/proc/%d" % self.process.pid
        with open(folder + "/status", encoding="ascii") as file:
            status = dict(line.split(":", 1) for line in file)
        return (len(os.listdir(folder + "/fd")), int(status["Threads"]),
                int(status["VmRSS"].split()[0]) * 1024)

    def test_handles_and_memory_stay_flat(self):
        self.drive(range(1))
        files, threads, memory = self.held()
        self.drive(range(1, HOURS))
        files_at_end, threads_at_end, memory_at_end = self.held()
        self.process.stdin.close()
        said = self.process.stderr.read().decode()
        self.assertEqual(self.process.wait(PATIENCE), 0, said)
        positions = HOURS * 3600
        print("%d positions: %d KB after an hour, %d KB at the end"
              % (positions, memory // 1024, memory_at_end // 1024), file=sys.stderr)
        self.assertEqual((files_at_end, threads_at_end), (files, threads))
        self.assertLess(memory_at_end - memory, positions * BYTES_A_POSITION + MARGIN_BYTES)
        self.assertIn("kept as drive 1: %.1f km" % ((positions - 1) / 100), said)
        self.assertEqual(self.query("SELECT count(*) FROM positions"), [(positions,)])


if __name__ == "__main__":
    run_tests()
