#!/usr/bin/env python3
"""Drives with receivers that are pulled out, a gpsd that dies and clocks that jump.

usage: receiver_faults_test.py PROGRAM [unittest arguments]
"""

import json
import os
import sys
import time

from fault_case import DAY_MS, FaultCase, moment, run_tests

sys.path.insert(1, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "siblings"))
from harness import free_port  # noqa: E402
from receiver import Gpsd  # noqa: E402
from receiver import Receiver as RoamingReceiver  # noqa: E402

KMH = 36


class PulledPort(FaultCase):
    def test_is_told_and_the_drive_goes_on_without_the_gap(self):
        first = self.plug_in()
        host = self.start_drive()
        self.await_positions(5, host)
        self.pull(first)
        self.await_words(host, "cannot open %s: No such file or directory; trying" % self.plug)
        self.wait_until(lambda: host.shown()[-1]["GPS status"] == "No signal", host.said)
        self.assertEqual(host.shown()[-1]["Speed"], "")
        before = len(self.seconds_kept())
        # Plugged in again a minute later by its own clock.
        second = self.plug_in()
        self.await_words(host, self.plug + " is connected")
        self.await_positions(before + 5, host)
        status, said = host.stop()
        self.assertEqual(status, 0, said)
        self.assertIn("kept as drive 1", said)
        seconds = self.seconds_kept()
        gap = next(i for i, each in enumerate(seconds) if each >= second.first_second)
        self.check_whole(seconds[:gap])
        self.check_whole(seconds[gap:])
        self.check_sums((len(seconds) - 2) * 10)

    def check_sums(self, metres):
        """Drive and trip have this distance; the receiver tells 36 km/h."""
        distance_km, highest_kmh = self.query("SELECT distance_km, highest_kmh FROM drives")[0]
        self.assertAlmostEqual(distance_km * 1000, metres, delta=15)
        self.assertAlmostEqual(highest_kmh, KMH, delta=0.01)


class DyingGpsd(FaultCase):
    def setUp(self):
        super().setUp()
        # gpsd opens the receiver and its log as another user.
        os.chmod(self.folder, 0o755)
        self.receiver = RoamingReceiver("constellations")
        self.addCleanup(self.receiver.close)
        self.port = free_port()

    def start_gpsd(self):
        gpsd = Gpsd(self.receiver.device, self.path("gpsd.log"), self.port)
        self.addCleanup(gpsd.stop)
        return gpsd

    def test_is_told_and_the_drive_goes_on(self):
        self.check()

    def test_is_told_and_the_drive_goes_on_with_the_gps_api(self):
        self.check("--gps-api")

    def check(self, *arguments):
        gpsd = self.start_gpsd()
        address = "127.0.0.1:%d" % self.port
        host = self.start_host("--json", "--gpsd", address, *arguments)
        self.await_positions(5, host)
        gpsd.process.kill()
        gpsd.process.wait()
        self.await_words(host, "cannot reach gpsd at %s: " % address)
        self.wait_until(lambda: host.shown()[-1]["GPS status"] == "No signal", host.said)
        before = self.number_kept()
        time.sleep(3)  # as long as a silence takes at least
        self.start_gpsd()
        self.await_words(host, "gpsd %s is connected" % address)
        self.wait_until(lambda: self.number_kept() >= before + 5, host.said)
        status, said = host.stop()
        self.assertEqual(status, 0, said)
        self.assertEqual(said.count("trying again until it works"), 1)
        self.assertIn("kept as drive 1", said)
        # The receiver stands where it is and tells 36 km/h.
        distance_km, highest_kmh = self.query("SELECT distance_km, highest_kmh FROM drives")[0]
        self.assertLess(distance_km * 1000, self.number_kept() * 10 + 1)
        self.assertAlmostEqual(highest_kmh, KMH, delta=0.01)

    def number_kept(self):
        return len(self.query("SELECT 1 FROM positions WHERE has_fix"))


class JumpingClock(FaultCase):
    """Eleven positions before the jump, eleven behind it; each stretch is 100 m."""

    def play(self, *stretches):
        """Plays stretches of (first second, date). Returns what was said and the last states."""
        text = "".join(moment(first + second, date)
                       for first, date in stretches for second in range(11))
        result = self.run_host("--nmea", "-", "--keep", "--json", text=text)
        self.assertEqual(result.returncode, 0, result.stderr)
        return result.stderr, json.loads(result.stdout.splitlines()[-1])["registry"]

    def check(self, *stretches):
        said, registry = self.play(*stretches)
        self.assertIn("the receiver's clock jumped: the trip goes on without the step", said)
        self.assertAlmostEqual(float(registry["Distance"]), 0.1 * len(stretches), places=4)
        self.assertEqual(registry["Elapsed"], str(10 * len(stretches)))
        self.assertAlmostEqual(float(registry["Max speed"]), KMH, delta=0.01)
        drive, = self.query("SELECT start_ms, end_ms, distance_km, highest_kmh FROM drives")
        self.assertAlmostEqual(drive[2], 0.1 * len(stretches), places=4)
        self.assertAlmostEqual(drive[3], KMH, delta=0.01)
        self.assertEqual(drive[1], DAY_MS + (stretches[-1][0] + 10) * 1000)
        self.assertEqual(drive[0], drive[1] - 10000 * len(stretches))
        self.assertEqual(len(self.seconds_kept()), 11 * len(stretches))
        self.assertIn("kept as drive 1: %d m in 0:00:%d" % (100 * len(stretches),
                                                            10 * len(stretches)), said)

    def test_from_1980_to_now(self):
        self.check((3600, "060180"), (3611, "211126"))

    def test_from_a_rolled_over_week(self):
        # 1,024 weeks before.
        self.check((3600, "070407"), (3611, "211126"))

    def test_years_ahead_and_back(self):
        self.check((3600, "211126"), (3611, "080746"), (3622, "211126"))

    def test_two_hours_back(self):
        self.check((10800, "211126"), (3600, "211126"))

    def test_exports_have_a_segment_for_each_stretch(self):
        self.play((3600, "060180"), (3611, "211126"))
        gpx = self.run_host("export", "last", "--gpx", "-").stdout
        self.assertEqual(gpx.count("<trkpt"), 22)
        self.assertEqual(gpx.count("<trkseg>"), 2)


if __name__ == "__main__":
    run_tests()
