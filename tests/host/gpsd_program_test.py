#!/usr/bin/env python3
"""Runs ferolin-host with a gpsd of its own and looks at what comes out.

usage: gpsd_program_test.py PROGRAM [unittest arguments]
"""

import json
import os
import signal
import subprocess
import sys

from program_test_case import PATIENCE, ProgramTestCase, run_tests

sys.path.insert(1, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "siblings"))
from harness import free_port  # noqa: E402
from receiver import Gpsd, Receiver  # noqa: E402


def seconds_of(clock):
    hours, minutes, seconds = (int(part) for part in clock.split(":"))
    return (hours * 60 + minutes) * 60 + seconds


class GpsdTest(ProgramTestCase):
    def setUp(self):
        super().setUp()
        # gpsd opens the receiver and its log as another user.
        os.chmod(self.folder, 0o755)
        self.receiver = Receiver("constellations")
        self.addCleanup(self.receiver.close)

    def start_gpsd(self, port=None):
        gpsd = Gpsd(self.receiver.device, self.path("gpsd.log"), port)
        self.addCleanup(gpsd.stop)
        return gpsd

    def start_host(self, port, *arguments):
        process = subprocess.Popen(
            self.command("--json", "--gpsd", "127.0.0.1:%d" % port, *arguments),
            env=self.environment(), stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
            stderr=subprocess.PIPE, encoding="utf-8")
        self.addCleanup(self.end, process)
        return process

    @staticmethod
    def next_update(process):
        return json.loads(process.stdout.readline())["text"]

    def await_line(self, process, accept):
        """The first line that is accepted."""
        for _ in range(1000):
            line = json.loads(process.stdout.readline())
            if accept(line):
                return line
        return self.fail(line)

    def await_update(self, process, accept):
        """The read-outs of the first update that is accepted."""
        return self.await_line(process, lambda line: accept(line["text"]))["text"]

    def stop_host(self, process):
        process.send_signal(signal.SIGTERM)
        said = process.communicate(timeout=PATIENCE)[1]
        self.assertEqual(process.returncode, 0, said)
        return said

    def test_gives_the_receivers_sentences_at_their_own_rate(self):
        process = self.start_host(self.start_gpsd().port)
        first = self.await_update(process, lambda sensors: sensors["GPS status"] == "OK")
        # 19.438 knots are 36 km/h.
        self.assertEqual(first["Speed"], "36.0 km/h")
        # The receiver sends ten positions a second, each a second of its own time later. Those that
        # a busy machine takes together show the last one's time; one a second would be ten apart.
        second = seconds_of(first["Current time"])
        for step in range(1, 21):
            sensors = self.next_update(process)
            passed = seconds_of(sensors["Current time"]) - second
            self.assertGreaterEqual(passed, step)
            self.assertLess(passed, step + 20)
        # It sends the altitude behind the position.
        self.assertEqual(sensors["Altitude"], "545.4 m")
        said = self.stop_host(process)
        self.assertRegex(said, "sends sentences of (GL, )?GN")
        self.assertNotIn("no sentences", said)

    def test_goes_on_when_gpsd_comes_late_goes_and_comes_back(self):
        port = free_port()
        process = self.start_host(port)
        notice = json.loads(process.stdout.readline())["notice"]
        self.assertEqual(notice, "cannot reach gpsd at 127.0.0.1:%d: Connection refused" % port)
        gpsd = self.start_gpsd(port)
        self.await_update(process, lambda sensors: sensors["Speed"] == "36.0 km/h")
        gpsd.stop()
        self.await_update(process, lambda sensors: sensors["GPS status"] == "No signal")
        self.start_gpsd(port)
        self.await_update(process, lambda sensors: sensors["Speed"] == "36.0 km/h")
        said = self.stop_host(process)
        name = "gpsd 127.0.0.1:%d" % port
        self.assertEqual(said.count("cannot reach gpsd at 127.0.0.1:%d: Connection refused" % port), 2)
        self.assertEqual(said.count(name + " is connected"), 2)

    def test_can_be_polled_through_the_gps_api(self):
        gpsd = self.start_gpsd()
        process = self.start_host(gpsd.port, "--gps-api")
        sensors = self.await_update(process, lambda sensors: sensors["GPS status"] == "OK")
        self.assertEqual(sensors["Speed"], "36.0 km/h")
        line = self.await_line(process, lambda line: line["fix"])
        self.assertAlmostEqual(line["speed_mps"], 10, delta=0.001)
        self.assertIsNotNone(line["lat"])
        gpsd.stop()
        last = self.await_line(process, lambda line: "notice" in line)["update"]
        line = self.await_line(process, lambda line: line["update"] > last + 1)
        self.assertEqual([line[key] for key in ("fix", "lat", "lon", "speed_mps")], [False] + 3 * [None])
        said = self.stop_host(process)
        self.assertNotIn("sends sentences of", said)
        self.assertIn("kept as drive 1: ", said)


if __name__ == "__main__":
    run_tests()
